#ifndef DESKWINDOW_H
#define DESKWINDOW_H

#include <QImage>
#include <QSet>
#include <QWidget>

class CaptionView;
class DeskSession;
class LauncherView;
class PageView;
class PenView;
class QComboBox;
struct SwipeReport;

/*
 * The window: pen above, page below, launcher beside it. Arrow keys, Return and the function keys
 * go to the pen while the focus is on it; Escape and the function keys always do.
 */
class DeskWindow : public QWidget
{
    Q_OBJECT

public:
    explicit DeskWindow(DeskSession& session, QWidget* parent = nullptr);
    ~DeskWindow() override;

    /* The whole window as a picture. */
    QImage picture();
    /* The pen and what it says. */
    QImage penPicture();

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;
    void changeEvent(QEvent* event) override;
    void closeEvent(QCloseEvent* event) override;

private:
    QWidget* makePageCard();
    QWidget* makePageBar();
    void connectPen();
    void connectPage();
    void tellWhenCameraIsOff();
    void tellSwipe(const SwipeReport& report);
    void choosePage();
    void openPage();
    void pressKey(Qt::Key key, bool pressed);
    bool goesToPen(int key) const;
    void showPen();
    void showScreen();

    DeskSession& m_session;
    PenView* m_pen;
    CaptionView* m_caption;
    PageView* m_page;
    LauncherView* m_launcher;
    QComboBox* m_pages = nullptr;
    QSet<Qt::Key> m_down; // keys of the keyboard that the pen has been told of
};

#endif
