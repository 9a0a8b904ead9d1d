#ifndef TTSCONFIG_H
#define TTSCONFIG_H

#include "widgets/pagereturn.h"

#include <QList>
#include <QWidget>

class SpinItems;

/*
 * A settings page: rows of which three are shown at a time, moved through with Up and Down; Left
 * and Right change the value of the current row. It fills the 256 x 64 pixels of the screen; marks
 * at the right edge tell that there are more rows above or below.
 *
 * Keys:
 *   Up, Down     another row, no wrap-around; signalUp(), signalDown() whether it moved or not
 *   Left, Right  another value; the row's triggered(), then signalUp()
 *   Enter        a row that is not a left/right-click row: as Left, without signalUp(); any other
 *                row, and a page without rows: leaves the page
 *   Escape       leaves the page; the top page ends the application
 *
 * All other keys go on to the parent. While a swipe is in progress all keys are swallowed, as in
 * menus.
 *
 * Interface thread only. A slot of the page's or its rows' signals may delete the page.
 */
class TTSConfig : public QWidget, public PageReturn
{
    Q_OBJECT

public:
    static constexpr int RowsPerPage = 3;

    explicit TTSConfig(QWidget* parent = nullptr);

    /* Shows the rows of the page that holds the current one and selects that. The page calls it
     * when it is shown and when the current row changes. */
    virtual void showPage();

    /* Appends a row; the page becomes its parent. Null and a row that is there already are
     * ignored. */
    void addItem(SpinItems* row);

    /* Hides all rows. */
    void hideAll();

    /* Makes a row current; false, and nothing changes, outside 0 to the last index. */
    bool setCurIndex(int index);
    int getCurIndex() const;

signals:
    /* The page is shown, Up or Down was pressed: the current row, and its label followed by its
     * value. After Left and Right signalUp() carries three blanks followed by the value. A page
     * without rows emits none of them. */
    void signalShow(int index, const QString& text);
    void signalUp(int index, const QString& text);
    void signalDown(int index, const QString& text);

    /* Enter has left a page that was opened by quick set: 0 and an empty text, in this order. */
    void okPressed(int index, const QString& text);
    void okPressedForQuick(int index, const QString& text);

    /* The page was left, by Escape or Enter; comes last. */
    void escPressed();

protected:
    const QList<SpinItems*>& rows() const { return m_rows; }

    /* The current row, null on a page without rows. */
    SpinItems* currentRow() const;

    bool focusNextPrevChild(bool next) override;
    void keyPressEvent(QKeyEvent* event) override;
    void showEvent(QShowEvent* event) override;
    void paintEvent(QPaintEvent* event) override;

private:
    int firstOnPage() const;
    int endOfPage() const;
    QString currentText() const;
    void moveUp();
    void moveDown();
    void step(void (SpinItems::*change)());
    void enter();

    QList<SpinItems*> m_rows; // owned as children
    int m_index = 0;
};

#endif
