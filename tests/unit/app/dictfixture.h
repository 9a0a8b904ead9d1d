#ifndef DICTFIXTURE_H
#define DICTFIXTURE_H

#include "dict/dictscanedit.h"
#include "dict/dictswitch.h"
#include "editor/myedit.h"
#include "engines/csoundsrcthread.h"
#include "engines/csoundthread.h"
#include "engines/csoundtransthread.h"
#include "engines/translater.h"
#include "tests/fakes/calls.h"
#include "tests/fakes/fakedic.h"
#include "tests/fakes/fakeiap.h"
#include "tests/fakes/fakeocr.h"
#include "tests/shared/windowfixture.h"
#include "widgets/sandglass.h"

/*
 * The application with dictionaries: English - German (two, "Small" and "Large"), German - English
 * ("Deutsch"), French - English ("Broken", which cannot be opened). The editor is open on a file.
 */
class DictFixture : public WindowFixture
{
public:
    explicit DictFixture(const QString& text = QStringLiteral("the house stands"),
                         const std::function<void()>& prepare = &DictFixture::install)
        : WindowFixture({}, prepare)
    {
        openEditor(text);
    }

    DictFixture(const DictFixture&) = delete;
    DictFixture& operator=(const DictFixture&) = delete;

    /* What a failed test left held is let go: the window's end waits for its workers. */
    ~DictFixture()
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
        window->newFile();
        QTRY_COMPARE(current(), static_cast<QWidget*>(window->editor()));
        if (!text.isEmpty())
            window->editor()->appendText(text);
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

    void translate()
    {
        window->transWordFun();
        QVERIFY(screen());
        QTRY_COMPARE(current(), static_cast<QWidget*>(screen()));
        settle();
    }

    using WindowFixture::press;
    void press(std::initializer_list<Qt::Key> keys)
    {
        for (const Qt::Key key : keys)
            WindowFixture::press(key);
    }

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
