#ifndef DICTSWITCH_H
#define DICTSWITCH_H

#include "widgets/ttsconfig.h"

#include <QFont>
#include <QString>
#include <QVector>

class DictList;

/*
 * The screen on which the dictionary is chosen: a row with the language pair, and below it the list
 * of the dictionaries of that pair.
 *
 * Keys:
 *   Left, Right  another language pair, with wrap-around; the first of its dictionaries is current
 *   Up, Down     another dictionary of the pair, with wrap-around
 *   Enter        leaves the screen with the choice
 *   Escape       leaves it as well: what was chosen with the arrows holds
 *
 * All other keys go on to the parent. While the key-enable flag is off (setLRFlag()) and while a
 * swipe is in progress, all keys are swallowed.
 *
 * On leaving, a choice that was changed is reported by selectChangedSignal(). When the scan
 * language is not the language that the dictionary explains, a message says so for four seconds;
 * the choice holds all the same.
 *
 * Whoever shows the screen speaks it: on signalShow(int, QString, int) what spokenText() returns,
 * on signalUp() and signalDown() their text, as of other pages.
 *
 * Interface thread only.
 */
class DictSwitch : public TTSConfig
{
    Q_OBJECT

public:
    explicit DictSwitch(QWidget* parent = nullptr);

    /* Adds a language pair: to the pair row, which is made for the first one, and its dictionaries
     * by addDicts(). A pair may be without dictionaries. */
    void addPair(const QString& name, const QVector<QString>& dicts);

    /* Adds the names of the dictionaries of the next language pair, in the order of the pair row's
     * values. */
    void addDicts(const QVector<QString>& names);

    /* The number of pairs added so far. */
    int GetDictCount() const;

    /* Shows pair `index` in the first row; nothing happens when it is negative or without rows. The
     * list follows with reloadDictInfoIndex(). */
    void setDictIndex(int index);

    /* The pair that is shown; -1 without pairs. */
    int getSelectIndex() const;

    /* The dictionary that is current in the list; -1 when the pair has none. */
    int getDictInfoIndex() const;

    /* Makes a dictionary current; false, and nothing changes, outside the list. */
    bool setDictInfoIndex(int index);

    /* Fills the list with the dictionaries of the pair that is shown and makes one of them current.
     * False for a pair without a list, and outside the list: it is filled then, and none is
     * current. What is current stays so when the screen is shown: call this before. */
    bool reloadDictInfoIndex(int index);

    /* Lays rows and list out. The list is filled when it shows another pair than the row. */
    void showPage() override;

    /* Emits selectChangedSignal(). */
    void selectChange(int pairIndex, int dictIndex, int flag);

    /* Goes back to the previous widget, then emits escPressed(). */
    void SetWindowState();

    /* Whether keys count; on at first. Off while a choice is being applied. */
    void setLRFlag(bool on);

    /* An arrow key was pressed since the screen was shown or left last. */
    bool isChanged() const { return m_changed; }

    /* Enter was pressed since the screen was shown. */
    bool isConfirmed() const { return m_confirmed; }

    /* What is shown, to be spoken: the pair and its dictionary. */
    QString spokenText() const;

signals:
    /* The choice on leaving: the pair, its dictionary (-1 when it has none), 1. */
    void selectChangedSignal(int pairIndex, int dictIndex, int flag);

    /* The screen is shown: 0, an empty text, 0. */
    void signalShow(int index, QString text, int last);

    /* Enter has left the screen, and the languages match. */
    void okTriggerSignal();

    /* For those who connect to them; not emitted. */
    void reloadWords();
    void SetStopSignal();
    void escTriggerSignal();

protected:
    void keyPressEvent(QKeyEvent* event) override;
    void showEvent(QShowEvent* event) override;
    void paintEvent(QPaintEvent* event) override;

private:
    enum class Key { Escape, Enter };

    bool fillList();
    void stepPair(void (SpinItems::*change)());
    void leave(Key key);
    void warnOfLanguage();

    QFont m_font{QStringLiteral("nits")};
    DictList* m_list; // owned as a child
    QVector<QVector<QString>> m_dicts;
    int m_listedPair = -1; // whose dictionaries the list has
    bool m_changed = false;
    bool m_keysEnabled = true;
    bool m_confirmed = false;
};

#endif
