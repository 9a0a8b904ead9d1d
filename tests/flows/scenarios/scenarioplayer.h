#ifndef SCENARIOPLAYER_H
#define SCENARIOPLAYER_H

#include "tests/flows/scenarios/dictionaryhost.h"
#include "tests/flows/scenarios/scenario.h"
#include "tests/flows/scenarios/screentext.h"
#include "tests/flows/scenarios/stage.h"

/*
 * Plays one scenario on a stage and compares. All that was spoken and sent since the last action
 * has to be listed before the next one, in its order and completely.
 */
class ScenarioPlayer
{
public:
    enum class Mode {
        Compare, // fails at the first difference
        Tell     // never fails: what happened is told in the language of scenarios
    };

    explicit ScenarioPlayer(Scenario scenario, Mode mode = Mode::Compare);

    /* Plays it to its end; false when something differed. */
    bool play();

    /* What failed, empty when nothing did; and all that happened up to then. */
    QString failure() const { return m_failure; }
    QString story() const { return m_story.join(u'\n'); }

private:
    using Step = ScenarioStep;
    using Verb = ScenarioStep::Verb;

    static QString scanPath(const QString& name);
    static QString toldAs(const Utterance& utterance);
    static QString toldAs(const QString& message);

    bool atEnd() const { return m_next >= m_scenario.steps.size(); }
    void prepare();
    void given(const Step& step);
    void writeText(const QString& name, const QString& text);
    void afterRun(int result);
    void absorb(const Stage::News& news);
    void atRest(const Stage::News& news);
    void tellScreen();
    void begin(const Step& step);
    void perform(const Step& step);
    void performOnPen(const Step& step);
    void performSwipe(const Step& step);
    bool expect(const Step& step);
    bool meets(const Step& step);
    bool expectScreen(const Step& step);
    bool expectSpoken(const Step& step);
    bool expectSent(const Step& step);
    bool expectList(const Step& step);
    bool expectWords(const Step& step);
    bool expectFile(const Step& step);
    bool expectSetting(const Step& step);
    bool differs(const QString& what, const QString& expected, const QString& found);
    bool allListed(const QString& before);
    bool moveCard(const QString& from, const QString& to);
    bool fail(const QString& what);

    Scenario m_scenario;
    QVector<GivenDictionary> m_dictionaries;
    Mode m_mode;
    Stage m_stage;
    qsizetype m_next = 0;
    QVector<Utterance> m_spoken; // since the last action, not listed yet
    QStringList m_sent;
    QStringList m_engines;
    bool m_somethingSpoken = false; // since the last action
    ScreenText m_before;            // the screen at the last action
    ScreenText m_remembered;
    QStringList m_story;
    QString m_failure;
    bool m_releaseSoon = false; // the next action releases recognition
    bool m_over = false;        // nothing more to play
};

#endif
