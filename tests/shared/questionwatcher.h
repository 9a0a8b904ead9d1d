#ifndef QUESTIONWATCHER_H
#define QUESTIONWATCHER_H

#include "widgets/yesnoselect.h"

#include <QApplication>
#include <QStringList>
#include <QTest>
#include <QTimer>
#include <functional>

/* Answers the questions that are asked: what was set last is done to each, as soon as it is on the
 * screen. */
class QuestionWatcher : public QObject
{
public:
    QuestionWatcher() { qApp->installEventFilter(this); }

    /* Keys that answer a question; without any it is left with Escape. */
    void answer(const QList<Qt::Key>& keys)
    {
        m_act = [keys](YesnoSelect* dialog) {
            for (const Qt::Key key : keys)
                QTest::keyClick(dialog, key);
        };
    }

    /* Something else than keys; what it leaves open is left without an answer. */
    void act(std::function<void(YesnoSelect*)> act) { m_act = std::move(act); }

    /* How many questions came. */
    int count() const { return m_count; }

    bool eventFilter(QObject* object, QEvent* event) override
    {
        auto* dialog = qobject_cast<YesnoSelect*>(object);
        if (dialog && event->type() == QEvent::Show) {
            ++m_count;
            QTimer::singleShot(0, dialog, [this, dialog] {
                m_act(dialog);
                if (dialog->isVisible()) // a test that has failed; exec() returns after this
                    dialog->reject();
            });
        }
        return false;
    }

private:
    std::function<void(YesnoSelect*)> m_act = [](YesnoSelect* dialog) {
        QTest::keyClick(dialog, Qt::Key_Escape);
    };
    int m_count = 0;
};

#endif
