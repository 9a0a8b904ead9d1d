#ifndef SCENARIO_H
#define SCENARIO_H

#include <QMap>
#include <QString>
#include <QStringList>
#include <QVector>
#include <functional>
#include <optional>

/* One line of a scenario; README.md describes the language. */
struct ScenarioStep
{
    enum class Verb {
        // What is there before the pen is switched on.
        GivenFile,      // name, text
        GivenUnits,     // name, number of code units
        GivenFiles,     // number of files
        GivenSetting,   // name, number
        GivenFreeSpace, // number of bytes
        GivenNoCard,
        GivenDictionary, // name, text: languages, "eng-deu"
        GivenDamaged,    // as above; it cannot be opened
        GivenWord,       // name: dictionary, text: word, texts: definition
        GivenLanguage,   // name: of the interface, "German"
        GivenRaw,        // name: path on the pen, text: written as UTF-8
        // What is done.
        Start,
        Key, // key: pressed and released
        Hold,
        Release,
        Swipe,        // text that is recognised
        SwipeNothing, // the engine makes no line of it
        SwipeRefused, // the pen takes no swipe now
        TipDown,
        TipUp,              // text
        HoldRecognition,    // recognitions wait
        ReleaseRecognition, //
        ReleaseSoon,        // just after the next action has begun
        HoldDictionary,     // dictionaries are not opened
        ReleaseDictionary,  //
        HoldVoice,          // texts wait for the next two
        RunVoice,           // texts run by themselves again
        VoiceWord,          // the next word is heard
        VoiceFinish,        // the text is heard to its end
        Send,               // name: message, text: payload
        Time,               // name: the timer that runs out
        FreeSpace,          // number of bytes
        TakeCard,
        PutCard,
        Remember, // the screen, for "screen remembered"
        // What must have come of it.
        Screen,        // name: kind, fields
        SameScreen,    // as before the last action
        KnownScreen,   // as remembered
        Spoken,        // text, language, speed, volume
        SpokenPerhaps, // text
        SpokenAnything,
        Silent,
        Sent,    // name: message, text: payload
        File,    // name, text
        Units,   // name, number of code units
        NoFile,  // name
        List,    // texts: names in the order of the menus
        Book,    // texts: words of the new-word book, the newest first
        Counted, // texts: words of the usage records
        Setting, // name, number
        Engine,  // text: a call as the engines' log has it
        Ended    // number: result of the process
    };

    QString place;  // "first-scan.scenario:12"
    QString source; // the line as it is written
    Verb verb = Verb::Start;
    QString name;
    QString text;
    QStringList texts;
    int key = 0;
    qint64 number = 0;
    QMap<QString, QStringList> fields;
    std::optional<int> language;
    std::optional<int> speed;
    std::optional<int> volume;

    bool isGiven() const { return verb <= Verb::GivenRaw; }
    bool isAction() const { return verb >= Verb::Start && verb <= Verb::Remember; }
};

/* A scenario, read and checked as a whole before anything of it runs. */
struct Scenario
{
    /* The text of a file that "do NAME" includes; nothing when there is none. */
    using Loader = std::function<std::optional<QString>(const QString& name)>;

    QVector<ScenarioStep> steps;
    bool atEveryPlace = false; // to be played once behind each file of places/
    QString error;             // empty when it is sound; else "NAME:3: ..."

    /* `name` is for error messages. */
    static Scenario parse(const QString& text, const QString& name, const Loader& load = nullptr);

    /* What may stand behind "screen KIND", in the order of descriptions. */
    static const QStringList& screenFields();
};

#endif
