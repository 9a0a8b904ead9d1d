#include "dict/transwords.h"
#include "open/dic/wordcutter.h"

#include <QRandomGenerator>
#include <QTest>

using transwords::Cut;
using transwords::Span;

namespace {

QList<Span> wordsOf(const QString& text, const Cut& cut)
{
    QList<Span> words;
    for (Span word = transwords::next(text, 0, cut); word.isValid();
         word = transwords::next(text, word.end, cut))
        words.append(word);
    return words;
}

QList<Span> wordsBackwards(const QString& text, const Cut& cut)
{
    QList<Span> words;
    for (Span word = transwords::previous(text, text.size(), cut); word.isValid();
         word = transwords::previous(text, word.start, cut))
        words.prepend(word);
    return words;
}

QList<Span> wordsOfTheDictionary(const QString& text, int language)
{
    QList<Span> words;
    dic::WordCutter cutter(
        {reinterpret_cast<const char16_t*>(text.utf16()), static_cast<std::size_t>(text.size())},
        language);
    for (dic::WordPlace place; cutter.next(place);)
        words.append({qsizetype(place.start), qsizetype(place.end)});
    return words;
}

} // namespace

/* Screen and dictionary cut a line alike: what the dictionary finds is what is selected. */
class TestSharedWords : public QObject
{
    Q_OBJECT

private slots:
    void everyCharacterIsCutAsTheDictionaryCutsIt_data();
    void everyCharacterIsCutAsTheDictionaryCutsIt();
    void anyLineIsCutAsTheDictionaryCutsIt_data();
    void anyLineIsCutAsTheDictionaryCutsIt();
};

void TestSharedWords::everyCharacterIsCutAsTheDictionaryCutsIt_data()
{
    QTest::addColumn<int>("language");
    for (const int language : {1, 3, 101, 103, 104, 105, 151})
        QTest::addRow("%d", language) << language;
}

void TestSharedWords::everyCharacterIsCutAsTheDictionaryCutsIt()
{
    QFETCH(int, language);
    for (int unit = 1; unit < 0x10000; ++unit) {
        if (QChar::isSurrogate(unit))
            continue;
        const QString text = QStringLiteral("a%1b").arg(QChar(unit));
        if (wordsOf(text, {language, false, {}}) != wordsOfTheDictionary(text, language))
            QFAIL(qPrintable(QStringLiteral("U+%1").arg(unit, 4, 16, QChar(u'0'))));
    }
}

void TestSharedWords::anyLineIsCutAsTheDictionaryCutsIt_data()
{
    everyCharacterIsCutAsTheDictionaryCutsIt_data();
}

void TestSharedWords::anyLineIsCutAsTheDictionaryCutsIt()
{
    QFETCH(int, language);
    const QString alphabet = QStringLiteral("aZ09'-,.; \n\u00e9\u0153\u00df\u0434\u0401\u4e2d"
                                            "\u3002\u00bf\u00a1\u00a0");
    QRandomGenerator random(20260101);
    const Cut cut = {language, false, {}};
    for (int round = 0; round < 2000; ++round) {
        QString text;
        for (quint32 i = random.bounded(24U); i > 0; --i)
            text += alphabet.at(random.bounded(int(alphabet.size())));
        QCOMPARE(wordsOf(text, cut), wordsOfTheDictionary(text, language));
        QCOMPARE(wordsBackwards(text, cut), wordsOf(text, cut));
    }
}

QTEST_APPLESS_MAIN(TestSharedWords)
#include "tst_sharedwords.moc"
