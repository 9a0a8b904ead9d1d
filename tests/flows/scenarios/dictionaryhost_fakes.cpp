#include "tests/fakes/fakedic.h"
#include "tests/flows/scenarios/dictionaryhost.h"

#include <QMap>
#include <QStringList>
#include <utility>

namespace {

struct Language
{
    std::int16_t code;
    const char16_t* name;
};

Language languageOf(const QString& letters)
{
    static const QMap<QString, Language> languages = {{QStringLiteral("zho"), {1, u"Chinese"}},
                                                      {QStringLiteral("eng"), {101, u"English"}},
                                                      {QStringLiteral("fra"), {103, u"French"}},
                                                      {QStringLiteral("deu"), {104, u"German"}}};
    if (!languages.contains(letters))
        qFatal("there is no language %s", qPrintable(letters));
    return languages.value(letters);
}

FakeDic::Dictionary contentOf(const GivenDictionary& given)
{
    FakeDic::Dictionary dictionary;
    dictionary.name = given.name.toStdU16String();
    dictionary.unreadable = given.damaged;
    for (const GivenDictionary::Entry& entry : given.entries) {
        const std::u16string word = entry.word.toStdU16String();
        dictionary.entries[word].push_back({word, entry.definition.toStdU16String()});
    }
    return dictionary;
}

} // namespace

void dictionaryhost::install(const QVector<GivenDictionary>& dictionaries, const TestRoot& root)
{
    Q_UNUSED(root)
    QStringList pairs;
    for (const GivenDictionary& given : dictionaries) {
        if (!pairs.contains(given.languages))
            pairs.append(given.languages);
    }
    for (const QString& pair : std::as_const(pairs)) {
        std::vector<FakeDic::Dictionary> contents;
        for (const GivenDictionary& given : dictionaries) {
            if (given.languages == pair)
                contents.push_back(contentOf(given));
        }
        const Language from = languageOf(pair.section(u'-', 0, 0));
        const Language to = languageOf(pair.section(u'-', 1, 1));
        FakeDic::addPair(from.code, to.code, std::u16string(from.name) + u"-" + to.name, contents);
    }
}
