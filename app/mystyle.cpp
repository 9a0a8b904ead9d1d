#include "app/mystyle.h"

MyStyle::MyStyle() : QProxyStyle(QStringLiteral("windows")) {}

MyStyle::~MyStyle() = default;
