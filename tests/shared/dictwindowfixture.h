#ifndef DICTWINDOWFIXTURE_H
#define DICTWINDOWFIXTURE_H

#include "dict/dictscanedit.h"
#include "dict/dictswitch.h"
#include "engines/csoundsrcthread.h"
#include "engines/csoundthread.h"
#include "engines/csoundtransthread.h"
#include "engines/translater.h"
#include "store/newwordmanager.h"
#include "tests/fakes/calls.h"
#include "tests/fakes/fakedic.h"
#include "tests/shared/swipes.h"
#include "tests/shared/windowfixture.h"
#include "widgets/sandglass.h"

/*
 * The application with dictionaries: English - German (two, "Small" and "Large"), German - English
 * ("Deutsch"), French - English ("Broken", which cannot be opened). The editor is open on a file.
 */
class DictWindowFixture : public WindowFixture
{
public:
    enum Pair { EnglishGerman, GermanEnglish, FrenchEnglish };

    static inline const QString CannotBeOpened =
        QStringLiteral("The dictionary cannot be opened. Please select another one.");
    static inline const QString NoneInstalled = QStringLiteral("No dictionary is installed.");

    explicit DictWindowFixture(const QString& text = QStringLiteral("the house stands"),
                               const std::function<void()>& prepare = &DictWindowFixture::install)
        : WindowFixture({}, prepare)
    {
        openEditor(text);
    }

    DictWindowFixture(const DictWindowFixture&) = delete;
    DictWindowFixture& operator=(const DictWindowFixture&) = delete;

    /* What a failed test left held is let go: the window's end waits for its workers. */
    ~DictWindowFixture()
    {
        FakeDic::holdInitialize(false);
        FakeOcr::release();
    }

    static FakeDic::Dictionary
    dictionary(const std::u16string& name,
               const std::vector<std::pair<std::u16string, std::u16string>>& entries)
    {
        FakeDic::Dictionary dictionary;
        dictionary.name = name;
        for (const auto& [word, definition] : entries)
            dictionary.entries[word] = {{word, definition}};
        return dictionary;
    }

    static void install()
    {
        FakeDic::Dictionary broken = dictionary(u"Broken", {});
        broken.unreadable = true;
        FakeDic::Dictionary small = dictionary(
            u"Small", {{u"house", u"Haus"}, {u"stands", u"steht"}, {u"keeper", u"W\u00e4rter"}});
        small.origin = u"Source: old prints\nLicence: CC0";
        FakeDic::addPair(101, 104, u"English - German",
                         {small, dictionary(u"Large", {{u"house", u"Haus; Geb\u00e4ude"}})});
        FakeDic::addPair(104, 101, u"German - English",
                         {dictionary(u"Deutsch", {{u"haus", u"house"}})});
        FakeDic::addPair(103, 101, u"French - English", {broken});
    }

    void openEditor(const QString& text)
    {
        openNewFile(text);
        putCursorOn(QStringLiteral("house"));
        settle();
    }

    void putCursorOn(const QString& word)
    {
        QTextCursor cursor = window->editor()->textCursor();
        cursor.setPosition(qMax(0, int(window->editor()->documentText().indexOf(word))));
        window->editor()->setTextCursor(cursor);
    }

    DictScanEdit* screen() const { return window->translateScreen(); }

    /* Waits until nothing works and nothing is spoken. */
    void settle()
    {
        for (int i = 0; i < 3; ++i) {
            QTRY_VERIFY(!window->isOpeningDictionary());
            QTRY_VERIFY(!window->menuSpeech()->isRunning()
                        && !window->editor()->soundThread()->isRunning()
                        && !(screen() && screen()->isReading()));
            QCoreApplication::processEvents();
        }
    }

    static bool isOpen(int pair, int dict) { return Translater::Instance()->isOpen(pair, dict); }

    void translate()
    {
        window->transWordFun();
        QVERIFY(screen());
        QTRY_COMPARE(current(), static_cast<QWidget*>(screen()));
        settle();
    }

    /* The words of the new-word book, the oldest first. */
    static QStringList remembered()
    {
        QStringList words;
        WordItem item;
        for (int i = 0; NewWordManager::Instance()->get(i, item); ++i)
            words.append(item.word);
        return words;
    }

    /* Triggers the entry of the "More settings" menu that reads so. */
    void chooseMore(const QString& entry)
    {
        press(Qt::Key_F9);
        const qsizetype index = entries().indexOf(entry);
        QVERIFY(index >= 0);
        for (qsizetype i = 0; i < index; ++i)
            press(Qt::Key_Down);
        press(Qt::Key_Return);
    }

    /* What was counted. */
    QStringList records() const
    {
        const QByteArray bytes = state.root.read(QStringLiteral("/mnt/mmc/Stastistic_File.txt"));
        QString text = QString::fromUtf16(reinterpret_cast<const char16_t*>(bytes.constData()),
                                          bytes.size() / 2);
        text.remove(QChar(QChar::ByteOrderMark));
        return text.split(QStringLiteral("\r\n"), Qt::SkipEmptyParts);
    }
};

#endif
