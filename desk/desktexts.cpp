#include "desk/desktexts.h"

#include <QCoreApplication>

namespace {

QString tr(const char* text)
{
    return QCoreApplication::translate("DeskWindow", text);
}

} // namespace

QString desktexts::help()
{
    return tr(
        "On the pen: the arrow keys, Return (OK), Escape, Space (say it again), F7 and F8 "
        "(seek), "
        "F9 (more settings), F10 (where am I?), F11 (rename), F12 (quick menu).\n\n"
        "On the page: drag over a line to swipe it, or double-click it. With the keyboard: Up, "
        "Down, Home and End choose a line, Return swipes it.\n\n"
        "F6 goes from the pen to the page and back, Tab through everything.\n"
        "Ctrl+O opens a page, Ctrl+T types one; a picture or a PDF file can be dropped on the "
        "desk.\n"
        "Ctrl+S saves what was done as a script, Ctrl+R plays one.");
}

QString desktexts::swipe(const SwipeReport& report)
{
    switch (report.outcome) {
    case desklink::SwipeOutcome::Delivered:
        return tr("A line was scanned (%1 pictures)").arg(report.frames);
    case desklink::SwipeOutcome::NoPrint:
        return tr("No print was found under the pen");
    case desklink::SwipeOutcome::BadMotion:
        return tr("The swipe cannot be read: too fast, or off the line");
    case desklink::SwipeOutcome::Stopped:
        break;
    }
    return tr("The pen did not want a swipe just now");
}
