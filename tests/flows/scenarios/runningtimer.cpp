#include "tests/flows/scenarios/runningtimer.h"

#include "app/mainwindow.h"
#include "editor/myedit.h"
#include "tests/flows/scenarios/stage.h"
#include "widgets/messagedialog.h"

#include <QApplication>
#include <QTimer>

namespace {

RunningTimer namedTimer(const QString& name)
{
    for (const QWidget* widget : QApplication::allWidgets()) {
        for (auto* timer : widget->findChildren<QTimer*>(name, Qt::FindDirectChildrenOnly)) {
            if (timer->isActive())
                return {timer, timer->timerId()};
        }
    }
    return {};
}

} // namespace

RunningTimer findTimer(const QString& name)
{
    if (name == QLatin1String("delay"))
        return namedTimer(QStringLiteral("readDelay"));
    if (name == QLatin1String("autosave")) {
        MyEdit* const editor = Stage::window()->editor();
        return {editor, editor ? editor->autoSaveTimer() : 0};
    }
    if (name == QLatin1String("message")) {
        auto* const dialog = qobject_cast<MessageDialog*>(QApplication::activeModalWidget());
        return {dialog, dialog ? dialog->timerId() : 0};
    }
    return namedTimer(name);
}
