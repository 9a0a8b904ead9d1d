#ifndef DIALOGWATCHER_H
#define DIALOGWATCHER_H

#include <QObject>
#include <QStringList>

/*
 * Lets the time of every message run out as soon as it is shown, as long as the watcher lives, and
 * keeps the texts.
 */
class DialogWatcher : public QObject
{
    Q_OBJECT

public:
    DialogWatcher();
    ~DialogWatcher() override;

    QStringList texts() const { return m_texts; }

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    QStringList m_texts;
};

#endif
