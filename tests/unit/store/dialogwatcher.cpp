#include "tests/unit/store/dialogwatcher.h"

#include "widgets/messagedialog.h"

#include <QApplication>
#include <QTimerEvent>

DialogWatcher::DialogWatcher()
{
    qApp->installEventFilter(this);
}

DialogWatcher::~DialogWatcher()
{
    qApp->removeEventFilter(this);
}

bool DialogWatcher::eventFilter(QObject* watched, QEvent* event)
{
    auto* const dialog = qobject_cast<MessageDialog*>(watched);
    if (dialog != nullptr && event->type() == QEvent::Show) {
        m_texts.append(dialog->text());
        // By the event loop of exec(): only then it can be ended.
        QMetaObject::invokeMethod(
            dialog,
            [dialog] {
                QTimerEvent timeOut(dialog->timerId());
                QApplication::sendEvent(dialog, &timeOut);
            },
            Qt::QueuedConnection);
    }
    return false;
}
