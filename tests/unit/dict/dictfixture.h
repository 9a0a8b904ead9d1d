#ifndef DICTFIXTURE_H
#define DICTFIXTURE_H

#include "dict/dictscanedit.h"
#include "tests/fakes/fakedic.h"
#include "tests/fakes/qcoprecorder.h"
#include "tests/shared/applicationstate.h"
#include "tests/shared/translatescreen.h"

#include <QStringList>
#include <memory>

/* What the tests of the translate screen share: scripted engines with a dictionary, made anew for
 * each test function, and the screen over another one. */
class DictFixture : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();
    void init();
    void cleanup();

protected:
    using Entry = translatescreen::Entry;

    /* The screen with one dictionary, which is open; settings are set before. */
    void open(int language, int endLanguage, const QList<Entry>& entries);

    /* An English-German dictionary of a few words. */
    void openEnglish();

    /* A key; presses of Enter are a second apart. */
    void press(Qt::Key key);

    /* Shows a text; its first word, or the entry for it, is being read. */
    void holdWord(const QString& text = QStringLiteral("house green"));
    void holdEntry(const QString& text = QStringLiteral("house green"));

    /* Waits until everything that is to be read has been. */
    void waitUntilSilent();

    /* Texts handed to the voice, pause tags left out. */
    static QStringList spoken();
    /* Asked once: the voice speaks on meanwhile. */
    static QString lastSpoken()
    {
        const auto all = spoken();
        return all.value(all.size() - 1);
    }

    QString scanText() const;
    QString shown() const { return m_edit->shownTranslation(); }

    /* What the highlight marks, empty when it marks nothing. */
    QString marked() const;

    std::unique_ptr<ApplicationState> m_state;
    std::unique_ptr<QCopRecorder> m_launcher;
    std::unique_ptr<QWidget> m_previous;
    std::unique_ptr<DictScanEdit> m_edit;
    QStringList m_announced;
    qint64 m_time = 1'000'000; // microseconds
};

#endif
