#ifndef DICENGINE_H
#define DICENGINE_H

#include "platform/zembra_dic.h"

#include <string>
#include <vector>

/* The dictionary engine as a caller sees it, in types that tests compare easily. Releases
 * everything when it goes. */
class DicEngine
{
public:
    struct Found
    {
        std::string word;
        std::string text;
        int property = 0;

        bool operator==(const Found&) const = default;
    };

    explicit DicEngine(const std::vector<std::string>& folders);
    ~DicEngine();

    DicEngine(const DicEngine&) = delete;
    DicEngine& operator=(const DicEngine&) = delete;

    void* list() const { return m_list; }

    /* "English-German 2": the pairs and how many dictionaries each has. */
    std::vector<std::string> pairs();

    /* Opens the dictionary with that number. */
    bool open(int number);

    /* `status` has what the engine returned. */
    std::vector<Found> search(const std::u16string& word);
    std::vector<Found> first(const std::u16string& line, int& position);

    int status = 0;

private:
    std::vector<Found> take(tagResultNodeInfo* result);

    void* m_list = nullptr;
};

#endif
