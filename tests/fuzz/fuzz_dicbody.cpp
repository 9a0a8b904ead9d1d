/* Damaged compressed texts: what passes the check sum reads as it was written. */
#include "open/dic/chunkedbody.h"
#include "tests/fuzz/memoryfile.h"
#include "tests/fuzz/require.h"
#include "tests/unit/open/dicfiles.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    static const std::string text = [] {
        std::string made;
        for (unsigned i = 0; made.size() < 900; ++i)
            made += std::to_string(i * 2654435761U);
        return made;
    }();
    static const std::string whole = dicfiles::dictzip(text, 200);
    static const std::atomic<bool> dontStop = false;

    dic::ChunkedBody body(memoryFile(changed(whole, data, size)));
    std::string out;
    if (!body.fault().empty())
        return 0;
    for (const std::size_t at : {0U, 199U, 450U, 899U}) {
        for (const std::size_t length : {1U, 200U, 700U}) {
            if (body.read(at, length, out))
                REQUIRE(out.size() == length && at + length <= body.size());
        }
    }
    if (body.verify(dontStop) && body.size() == text.size())
        REQUIRE(body.read(0, text.size(), out) && out == text);
    dic::inflateFile(memoryFile(changed(whole, data, size)), 2000, out);
    REQUIRE(out.size() <= 2000);
    return 0;
}
