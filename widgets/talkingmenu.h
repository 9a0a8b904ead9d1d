#ifndef TALKINGMENU_H
#define TALKINGMENU_H

#include "widgets/talkinglist.h"

#include <QBasicTimer>
#include <QMenu>
#include <QPointer>
#include <QTimer>

class CTTSThread;
class QLabel;

/*
 * What the talking list menus MyMenu and MySubMenu share: a full-screen list of entries, one
 * QAction each, moved through with Up and Down, chosen with Enter, left with Escape. Every entry
 * that becomes current is announced by a signal, so that the flow can speak it.
 *
 * The title of the menu is shown in the first line with the place in the list at its right, three
 * entries below it. An entry's status tip is its second text (see SetShowSecondText()). Texts are
 * plain: no mnemonics, no mark-up.
 *
 * While the scan engine is busy with a swipe, keys are swallowed. Every other key stops speech, and
 * a key that the menu has no use for goes on to the parent.
 * A menu with a parent is an ordinary child widget; mouse events are ignored.
 *
 * Interface thread only. A slot of the menu's signals may delete the menu.
 */
class TalkingMenu : public QMenu
{
    Q_OBJECT
    /* Whether texts that are too long scroll while their entry is current. */
    Q_PROPERTY(bool animated READ isAnimated WRITE setAnimated)

public:
    ~TalkingMenu() override;

    /* Makes an entry current; false, and nothing changes, outside 0 to the last index. */
    bool setCurIndex(int index);
    int getCurIndex() const;

    /* Where Escape leads, and Enter on a leaf node; null for the top menu, whose Escape ends the
     * application. Not owned; a widget that is deleted counts as null. */
    void setPrevWidget(QWidget* widget);
    QWidget* getPrevWidget() const;

    /* Where Enter leads on a leaf node that was opened by a quick-set shortcut. Not owned. */
    void setPrevQuickWidget(QWidget* widget);

    /* Leaf node: the entries are values of a setting, Enter chooses one and leaves. */
    void setLeafNode(bool on);

    /* The menu was opened by a quick-set shortcut; cleared when a leaf node is left with Enter. */
    void setQuickFlag(bool on);

    /* Shows the status tip of each entry at the right of its row. */
    void SetShowSecondText(bool on);

    /* Text at the right of the title line, about four characters, instead of the place of the
     * current entry ("2/5"). Empty: the place. */
    void setNumLabel(const QString& text);

    /* The worker that speaks entries for ttsFirst() and ttsCurentItem(); not owned, null for
     * none. */
    void setSpeechWorker(CTTSThread* worker);

    /* Stops speech, then ttsCurentItem(). */
    void ttsFirst();

    /* Hands the current entry to the speech worker and tells the main process that sound begins.
     * Nothing happens without entries or without a worker. */
    void ttsCurentItem();

    /* Speaking has ended: tells the main process. The end of the worker leads here. */
    void FinishTTS();

    /* True from the moment an entry was handed to the worker until FinishTTS(). */
    bool isTalking() const;

    /* Leaves the menu as Escape does. */
    void ExitWithoutDelete();

    /* Emits escPressed(). */
    void escPress(int index, const QString& text);

    bool isAnimated() const;
    void setAnimated(bool on);

    /* Number of the timer of the slow scroll, -1 while nothing scrolls. A timer event with that
     * number is one tick. */
    int scrollTimerId() const;

public slots:
    /* Ends the application as soon as the speech worker has ended: looks again after 10 ms while
     * it runs. */
    void threadQuitTalking();

signals:
    /* Enter on a leaf node that was opened by quick set: current index and an empty text. */
    void okPressed(int index, const QString& text);

    /* Escape, and Enter on a leaf node: current index and an empty text. */
    void escPressed(int index, const QString& text);

protected:
    TalkingMenu(const QString& title, QWidget* parent);

    /* A key arrived, before anything else is done about it. */
    virtual void announceKeyPress() {}

    /* The menu is shown; the current entry moved. `fromEnd` counts the entries that follow. */
    virtual void announceShow(int index, const QString& text, int fromEnd) = 0;
    virtual void announceUp(int index, const QString& text, int fromEnd) = 0;
    virtual void announceDown(int index, const QString& text, int fromEnd) = 0;

    /* Whether leaving the top menu waits for the speech worker to end. */
    virtual bool waitsForSpeech() const = 0;

    bool focusNextPrevChild(bool next) override;
    void keyPressEvent(QKeyEvent* event) override;
    void showEvent(QShowEvent* event) override;
    void hideEvent(QHideEvent* event) override;
    void actionEvent(QActionEvent* event) override;
    void timerEvent(QTimerEvent* event) override;
    void paintEvent(QPaintEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;

private:
    void moveUp();
    void moveDown();
    void enter();
    void chooseLeaf();
    void endApplication();
    void workerFinished();
    void restartScroll();
    QString textAt(int index) const;
    QString currentText() const;
    QString secondTextAt(int index) const;
    void paintRow(QPainter& painter, int row) const;

    TalkingList m_list;
    QPointer<QWidget> m_prevWidget;
    QPointer<QWidget> m_prevQuickWidget;
    QPointer<CTTSThread> m_worker;
    QLabel* m_numLabel;
    QTimer m_quitTimer;
    QBasicTimer m_scrollTimer;
    int m_scrollTick = 0;
    bool m_leafNode = false;
    bool m_quickFlag = false;
    bool m_showSecondText = false;
    bool m_talking = false;
    bool m_animated = true;
};

#endif
