#ifndef WANDERER_H
#define WANDERER_H

#include "tests/flows/scenarios/stage.h"

#include <QMap>
#include <QSet>
#include <random>

/*
 * A user who presses, swipes and plugs at random, often without waiting for what comes of it, and
 * then looks whether the application is still sound: no screen without keys, the way back to the
 * main menu open, every scan in its file.
 *
 * The same seed does the same things; how they fall between the application's threads may differ.
 */
class Wanderer
{
public:
    Wanderer(unsigned seed, int steps);

    /* Walks; false when something was wrong. */
    bool walk();

    QString failure() const { return m_failure; }
    QString story() const { return m_story.join(u'\n'); }

private:
    void atRest(const Stage::News& news);
    bool look();
    void burst();
    void oneStep();
    void pressSomeKey();
    void goSomewhere();
    void swipe();
    void tellSomething();
    void turnTheVoice();
    void endSomeTimer();
    void changeTheCard();
    void goHome();
    void noteDocument();
    bool fileIsGone() const;
    bool scansAreKept();
    QString everythingOnTheCard() const;
    bool isAtHome() const;
    int upTo(int number);
    void note(const QString& line) { m_story.append(line); }
    bool fail(const QString& what);

    Stage m_stage;
    std::mt19937 m_random;
    int m_stepsLeft;
    int m_escapesLeft;
    int m_swipes = 0;
    bool m_frozen = false; // the PC has the card
    bool m_mayHaveEnded = false;
    bool m_cardOut = false;
    bool m_cardWasOut = false;
    bool m_tipIsDown = false;
    bool m_done = false;
    QSet<QString> m_appended;         // scans that were seen in a document
    QMap<QString, QString> m_fileOf;  // in which one
    QSet<QString> m_everListed;       // files
    bool m_leftWithoutSaving = false; // "stoponly": what was not saved is given up
    QStringList m_story;
    QString m_failure;
};

#endif
