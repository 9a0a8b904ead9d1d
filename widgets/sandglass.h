#ifndef SANDGLASS_H
#define SANDGLASS_H

#include <QWidget>

/*
 * The busy indicator: an hourglass of 33 x 33 pixels that turns. Its owner puts it at Place
 * on the screen that is busy and shows it.
 *
 * The animation is the device's file "/apps/res/sandglass.gif" and runs from construction on;
 * without that file an hourglass that stands still is drawn.
 *
 * Interface thread only.
 */
class SandGlass : public QWidget
{
    Q_OBJECT

public:
    /* Its place on a screen. */
    static constexpr QRect Place = QRect(100, 10, 33, 33);

    explicit SandGlass(QWidget* parent = nullptr);
};

#endif
