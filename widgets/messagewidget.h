#ifndef MESSAGEWIDGET_H
#define MESSAGEWIDGET_H

#include <QPointer>
#include <QWidget>

class QLabel;

/*
 * A message that fills the screen and stays until it is left. Its owner hears escpressed() and
 * calls goBack(), or does something else. It is spoken through the announcer whenever it is shown.
 *
 * The text is plain and in the middle, in up to four lines; a longer one ends with an ellipsis.
 *
 * Interface thread only. A slot of escpressed() may delete the widget.
 */
class MessageWidget : public QWidget
{
    Q_OBJECT

public:
    MessageWidget(const QString& title, QWidget* parent);

    /* The text. */
    void setTitle(const QString& title);

    /* Where goBack() leads; not owned, a widget that is deleted counts as null. */
    void setPrevWidget(QWidget* widget);
    QWidget* getPrevWidget() const;

    /* Shows the previous widget instead of this one; without one nothing happens, so that the
     * display is never empty. */
    void goBack();

signals:
    /* Escape or Enter was pressed. All other keys are ignored. */
    void escpressed();

protected:
    bool focusNextPrevChild(bool next) override;
    void keyPressEvent(QKeyEvent* event) override;
    void showEvent(QShowEvent* event) override;

private:
    QString m_title;
    QLabel* m_label;
    QPointer<QWidget> m_prevWidget;
};

#endif
