#ifndef DESKWINDOW_H
#define DESKWINDOW_H

#include "desk/deskmemory.h"
#include "desk/deskplayer.h"
#include "desk/penkeyboard.h"
#include "desk/sessionrecorder.h"

#include <QImage>
#include <QPointer>
#include <QWidget>
#include <optional>

class CaptionView;
class DeskSession;
class LauncherView;
class PageView;
class PenView;
class HandView;
class PageBar;
class QHBoxLayout;
class QVBoxLayout;
class ScriptView;
class TypeDialog;
struct SwipeReport;

/*
 * The window: pen above, page below, launcher beside it. Arrow keys, Return and the function keys
 * go to the pen while the focus is on it; Escape and F7 to F12 always do. It fits itself to screens
 * from 1024 x 600.
 */
class DeskWindow : public QWidget
{
    Q_OBJECT

public:
    explicit DeskWindow(DeskSession& session, QWidget* parent = nullptr);
    ~DeskWindow() override;

    /* Takes over what was remembered, all but the page. */
    void recall(const DeskMemory& memory);
    DeskMemory memory() const;

    /* What was done on the desk. */
    const SessionRecorder& recorder() const { return m_recorder; }

    /* Something the user should know. */
    void tell(const QString& text, bool alarm);

    /* The whole window as a picture. */
    QImage picture();
    /* The pen and what it says. */
    QImage penPicture();

protected:
    void changeEvent(QEvent* event) override;
    void closeEvent(QCloseEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void dragEnterEvent(QDragEnterEvent* event) override;
    void dropEvent(QDropEvent* event) override;

private:
    QWidget* makeCaptionCard();
    QWidget* makePageCard();
    QWidget* makeLauncherCard();
    void makeShortcuts();
    void connectLauncher();
    void connectPen();
    void connectPage();
    void tellWhenCameraIsOff();
    QString whyCameraIsOff() const;
    void tellSwipe(const SwipeReport& report);
    void layPage(const PageSource& source);
    void typePage();
    void play(const QString& path);
    void setDark(bool dark);
    void fit();
    void moveFocus();
    void showHelp();
    void showPen();
    void showScreen();

    DeskSession& m_session;
    SessionRecorder m_recorder;
    DeskPlayer m_player;
    PenView* m_pen;
    PenKeyboard m_keyboard;
    CaptionView* m_caption;
    PageView* m_page;
    PageBar* m_pageBar;
    HandView* m_hand;
    ScriptView* m_script;
    LauncherView* m_launcher;
    QVBoxLayout* m_column = nullptr;
    QHBoxLayout* m_row = nullptr;
    QWidget* m_launcherCard = nullptr;
    QPointer<TypeDialog> m_typing;
    std::optional<bool> m_dark; // as the user has chosen
};

#endif
