#ifndef MESSAGEWATCHER_H
#define MESSAGEWATCHER_H

#include "widgets/messagedialog.h"

#include <QApplication>
#include <QStringList>
#include <QTimer>
#include <QTimerEvent>

/*
 * Notes the texts of the timed messages that are shown, and lets each run out at once, as if its
 * time had passed.
 */
class MessageWatcher : public QObject
{
public:
    MessageWatcher() { qApp->installEventFilter(this); }

    const QStringList& texts() const { return m_texts; }

    bool eventFilter(QObject* object, QEvent* event) override
    {
        auto* dialog = qobject_cast<MessageDialog*>(object);
        if (dialog && event->type() == QEvent::Show) {
            m_texts.append(dialog->text());
            QTimer::singleShot(0, dialog, [dialog] {
                QTimerEvent timeOver(dialog->timerId());
                QCoreApplication::sendEvent(dialog, &timeOver);
            });
        }
        return false;
    }

private:
    QStringList m_texts;
};

#endif
