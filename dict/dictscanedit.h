#ifndef DICTSCANEDIT_H
#define DICTSCANEDIT_H

#include <QWidget>

/* The translate screen. */
class DictScanEdit : public QWidget
{
    Q_OBJECT

public:
    explicit DictScanEdit(QWidget* parent = nullptr);

    /* A word begins to be heard. Called on the speech engine's thread; only emits
     * signalTTShignlight. */
    void tirggleTTShignlight(int offset, int length, int kind);

signals:
    void signalTTShignlight(int offset, int length, int kind);
};

#endif
