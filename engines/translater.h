#ifndef TRANSLATER_H
#define TRANSLATER_H

#include <QString>
#include <QVector>
#include <atomic>
#include <mutex>

struct tagDictInfo;
struct tagDictTypeInfo;

/* One language pair of the installed dictionaries. */
struct _stTransLan
{
    int lanID = 0;               // language of the headwords
    quint16 endLanID = 0;        // language of the definitions
    QString name;                // display name, as the engine gives it
    QVector<tagDictInfo*> dicts; // the pair's dictionaries; the engine's own
};

/* One entry that a search found. */
struct _stTransItem
{
    QString trans; // definition, may have several lines
    QString word;  // headword as the dictionary spells it
    int kind = 0;
};

/*
 * The one place that talks to the dictionary engine.
 *
 * Interface thread, except getLanID(), getEndLanID() and GetDict(vector): any thread.
 */
class Translater
{
public:
    static std::atomic<Translater*> transInstance;

    /* The one instance, created on first use; creation loads the dictionary list. */
    static Translater* Instance();

    /* Releases what the engine gave and deletes the instance, if there is one. */
    static void quitFun();

    /* Loads the list of installed dictionaries and their language pairs; the argument is not
     * used. 0, or -1 when the engine fails. */
    int init(int unused);

    /* Releases the engine's lists and dictionary. -1 when nothing is loaded or the pairs cannot
     * be released, -8 when the dictionary cannot be closed, -9 when the list cannot be released,
     * else the engine's status. */
    int destroy();

    /* Reads the language pairs anew. The engine's status, -1 on failure. */
    int GetDict();

    /* Copies the language pairs and returns their number. */
    int GetDict(QVector<_stTransLan>& pairs);

    /* The languages of pair `index`, -1 outside the table. */
    int getLanID(int index);
    int getEndLanID(int index);

    /* Adds a language pair; empties the table. */
    void sortTransLan(const _stTransLan& pair);
    void sortClear();

private:
    Translater();
    ~Translater();

    int initialized = 0;
    void* dicList = nullptr;
    tagDictInfo* curDict = nullptr;
    QVector<_stTransLan> transLans;
    tagDictTypeInfo* typeList = nullptr;
    std::mutex m_mutex; // guards transLans
};

#endif
