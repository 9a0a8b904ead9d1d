#ifndef MYEDIT_H
#define MYEDIT_H

#include "engines/stimg.h"

#include <QTextEdit>

/* The screen of the Scan-to-file mode. */
class MyEdit : public QTextEdit
{
    Q_OBJECT

public:
    explicit MyEdit(QWidget* parent = nullptr);
    ~MyEdit() override;

    /* A scan has arrived. Called on the scan engine's thread; takes the record over. */
    void tirggleEditSingal(_stImg* image);

    /* A word begins to be heard. Called on the speech engine's thread; only emits
     * signalTTShignlight. */
    void tirggleTTShignlight(int offset, int length, int kind);

    /* Recognises an image; called on CRecThread. Takes the record over. Returns the engine's
     * result, -1 for a record without an image, -2 when no text came out. */
    int RecThread(_stImg* image);

public slots:
    /* Starts recognition on CRecThread. Takes the record over. 0 when started, -1 when one is
     * running already and the image was dropped. */
    int Recognize(_stImg* image);

    /* Prepares a text for speech and speaks it; called on CSoundThread, returns when it has been
     * spoken or stopped. */
    void Sound(QString& text);

signals:
    void signalEdit(_stImg* image);
    void signalTTShignlight(int offset, int length, int kind);
};

#endif
