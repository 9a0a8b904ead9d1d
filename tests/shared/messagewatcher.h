#ifndef MESSAGEWATCHER_H
#define MESSAGEWATCHER_H

#include "widgets/messagedialog.h"

#include <QAbstractEventDispatcher>
#include <QApplication>
#include <QPointer>
#include <QStringList>
#include <QTimer>
#include <QTimerEvent>
#include <functional>
#include <utility>

/*
 * Notes the texts of the timed messages that are shown, and lets each run out at once, as if its
 * time had passed.
 */
class MessageWatcher : public QObject
{
public:
    MessageWatcher() { qApp->installEventFilter(this); }

    const QStringList& texts() const { return m_texts; }

    /* How long each of them would have stayed. */
    const QList<int>& milliseconds() const { return m_milliseconds; }

    /* What happens while the next message is shown. */
    void meanwhile(std::function<void()> action) { m_meanwhile = std::move(action); }

    bool eventFilter(QObject* object, QEvent* event) override
    {
        auto* dialog = qobject_cast<MessageDialog*>(object);
        if (dialog && event->type() == QEvent::Show) {
            m_texts.append(dialog->text());
            QTimer::singleShot(0, dialog, [this, dialog] {
                const auto timers = QAbstractEventDispatcher::instance()->registeredTimers(dialog);
                for (const auto& timer : timers)
                    if (timer.timerId == dialog->timerId())
                        m_milliseconds.append(timer.interval);
                const QPointer<MessageDialog> shown(dialog);
                if (const auto action = std::exchange(m_meanwhile, nullptr))
                    action();
                if (!shown)
                    return;
                QTimerEvent timeOver(dialog->timerId());
                QCoreApplication::sendEvent(dialog, &timeOver);
            });
        }
        return false;
    }

private:
    QStringList m_texts;
    QList<int> m_milliseconds;
    std::function<void()> m_meanwhile;
};

#endif
