/*
 * The queue of texts as it must not be: without its lock. The thread sanitizer has to find it, and
 * so proves that it sees the threads of the tests beside it.
 */
#include <string>
#include <thread>
#include <vector>

namespace {

class UnlockedQueue
{
public:
    void add(const std::string& text) { m_texts.push_back(text); }
    std::size_t size() const { return m_texts.size(); }

private:
    std::vector<std::string> m_texts;
};

} // namespace

int main()
{
    UnlockedQueue queue;
    std::size_t seen = 0;
    std::thread worker([&queue, &seen] {
        for (int i = 0; i < 1000; ++i)
            seen += queue.size();
    });
    for (int i = 0; i < 1000; ++i)
        queue.add("text");
    worker.join();
    return seen == static_cast<std::size_t>(-1) ? 1 : 0;
}
