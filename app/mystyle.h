#ifndef MYSTYLE_H
#define MYSTYLE_H

#include <QProxyStyle>

/* The application's style: the Windows style's metrics, whatever the host's default is. Given to
 * QApplication::setStyle(), which takes ownership. */
class MyStyle : public QProxyStyle
{
    Q_OBJECT

public:
    MyStyle();
    ~MyStyle() override;
};

#endif
