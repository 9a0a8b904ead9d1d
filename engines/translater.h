#ifndef TRANSLATER_H
#define TRANSLATER_H

#include <QHash>
#include <QString>
#include <QStringList>
#include <QVector>
#include <atomic>
#include <mutex>

struct tagDictInfo;
struct tagDictTypeInfo;
struct tagResultNodeInfo;
struct tagWordPropertyIfo;

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
 * The one place that talks to the dictionary engine. At most one dictionary is open at a time.
 *
 * Failures are negative results:
 *   -1  nothing is loaded, the input is empty, nothing was found, there is no such language pair,
 *       or the engine's lists cannot be got or released
 *   -2  there is no such dictionary
 *   -3  the dictionary cannot be opened
 *   -6  the search failed
 *   -7  a search result cannot be released
 *   -8  the dictionary cannot be closed; it is not the current one any more all the same
 *   -9  the list of dictionaries cannot be released
 *
 * Threads: any. Only one is in the engine at a time: while setDict() opens a dictionary, which may
 * take seconds, searches and changes of the lists wait. What only reads the table of pairs never
 * waits for the engine: getLanID(), getEndLanID(), GetDict(vector), isOpen() and dictName().
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

    /* Releases the engine's dictionary and lists, and empties the table. -1 when nothing is loaded
     * or the pairs cannot be released, -8, -9, else the engine's status. */
    int destroy();

    /* Reads the language pairs anew. The engine's status, -1 on failure: there are no pairs then.
     * The open dictionary stays open. */
    int GetDict();

    /* Copies the language pairs and returns their number. A pair may be without dictionaries: it
     * keeps its place while they are away. */
    int GetDict(QVector<_stTransLan>& pairs);

    /* The languages of pair `index`, -1 outside the table. The second is 0 to 65535. */
    int getLanID(int index);
    int getEndLanID(int index);

    /* Closes the open dictionary and opens another: by the engine's number, or by its place in the
     * table. The engine's status, or -8, -1 (second form: no such pair), -2, -3. After a failure no
     * dictionary is open, wrong arguments included. The first time may take seconds: not for the
     * interface thread. */
    int setDict(int dictNumber);
    int setDict(int lanIndex, int dictIndex);

    /* Whether that dictionary is the one that is open; false while it is being opened, and from a
     * search that failed (-6) on: its card may have been pulled out. */
    bool isOpen(int lanIndex, int dictIndex);

    /* What to call a dictionary on screen: the name it has, else that of its pair and its number.
     * Empty outside the table. */
    QString dictName(int lanIndex, int dictIndex);

    /* Where a dictionary comes from and under which licence: lines; empty when it does not tell,
     * and outside the table. Asks the engine. */
    QString dictSource(int lanIndex, int dictIndex);

    /* Looks `word` up in the open dictionary and appends what is found to `items`; `property`
     * receives the first headword. The number of entries in `items`, or -1, -6, -7 (the entries
     * are there). `items` and `property` are untouched when nothing was found. `shown` has no
     * effect, `found` is always false: success is a positive result. */
    int transWord(const QString& shown, const QString& word, QVector<_stTransItem>& items,
                  bool& found, tagWordPropertyIfo& property);

    /* Finds the first dictionary word of a line and appends its definitions to `candidates`;
     * `position` receives the 1-based place of the word. The number of entries in `candidates`,
     * or -1, -6, -7 (the entries are there). `found` is always false. */
    int transWordFirst(const QString& text, QVector<QString>& candidates, int& position,
                       bool& found);

    /* Adds a language pair; empties the table. */
    void sortTransLan(const _stTransLan& pair);
    void sortClear();

    /* Walks a chain of results from `node` on; builds nothing. -1 when `node` is null, else 0. */
    int GetDefineStr(tagResultNodeInfo* first, tagResultNodeInfo* node, int flag);

    /* Speech of a word is not the engine's: says nothing. -1 when the text is empty or `flag` is
     * 0, else 0. */
    int soundWord(char* text, int flag);

private:
    Translater();
    ~Translater();

    int readPairs();
    int closeCurrent();
    int openCurrent();
    void countAsClosed();
    bool hasPair(int lanIndex) const;
    tagDictInfo* dictAt(int lanIndex, int dictIndex) const;
    QString adapted(const QString& word, int lanIndex);

    // Guarded by m_engine, which is held during each call of the engine.
    int initialized = 0;
    void* dicList = nullptr;
    tagDictInfo* curDict = nullptr; // also one that could not be opened: it is closed like others
    tagDictTypeInfo* typeList = nullptr;
    std::mutex m_engine;

    // Guarded by m_table, which is never held during a call of the engine.
    QVector<_stTransLan> transLans;
    QHash<const tagDictInfo*, QString> m_names;
    const tagDictInfo* m_open = nullptr;
    std::mutex m_table;
};

/* Splits UTF-16 strings, each ended by a 0 and all of them by two, into `out`; empty ones are left
 * out. Looks at `length` code units, 80 at the most; a string without its end is left out. The
 * number of strings, -1 without a buffer (`out` is untouched then). */
int GetCandStrings(const unsigned short* buffer, int length, QStringList& out);

#endif
