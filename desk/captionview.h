#ifndef CAPTIONVIEW_H
#define CAPTIONVIEW_H

#include "desk/transcript.h"

#include <QWidget>

/*
 * What the pen is saying, in writing: a loudspeaker that sends waves while it speaks, and the
 * text with the word marked that is heard now. A text too long for the line is moved so that the
 * word stays in sight.
 */
class CaptionView : public QWidget
{
    Q_OBJECT

public:
    explicit CaptionView(QWidget* parent = nullptr);

    void showTranscript(const Transcript& transcript);

    QSize sizeHint() const override;

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    void paintSpeaker(QPainter& painter) const;
    void paintText(QPainter& painter) const;

    bool m_speaking = false;
    QString m_text; // mark-up blanked out, one character for one
    int m_wordOffset = 0;
    int m_wordLength = 0;
};

#endif
