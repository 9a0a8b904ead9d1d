#include "open/dic/body.h"

#include "open/dic/chunkedbody.h"
#include "open/dic/plainfile.h"

#include <utility>

namespace dic {

namespace {

class PlainBody : public Body
{
public:
    explicit PlainBody(PlainFile file) : m_file(std::move(file)) {}

    std::uint64_t size() const override { return m_file.size(); }

    bool read(std::uint64_t offset, std::size_t length, std::string& out) override
    {
        return m_file.read(offset, length, out);
    }

    bool verify(const std::atomic<bool>& stop) override { return !stop; }

private:
    PlainFile m_file;
};

} // namespace

std::unique_ptr<Body> openBody(const std::string& path, std::string& why)
{
    PlainFile file = PlainFile::open(path);
    if (!file.isOpen()) {
        why = "is no file that can be read";
        return nullptr;
    }
    if (!path.ends_with(".dz"))
        return std::make_unique<PlainBody>(std::move(file));
    auto body = std::make_unique<ChunkedBody>(std::move(file));
    why = body->fault();
    return why.empty() ? std::move(body) : nullptr;
}

} // namespace dic
