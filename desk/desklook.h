#ifndef DESKLOOK_H
#define DESKLOOK_H

#include <QColor>

/* Colours and measures that the parts of the desk's window share. */
namespace desklook {

constexpr QColor Desk(0xe9, 0xeb, 0xee);
constexpr QColor Mat(0xdd, 0xe1, 0xe7); // under the page
constexpr QColor Panel(0xff, 0xff, 0xff);
constexpr QColor PanelEdge(0xd5, 0xd9, 0xdf);
constexpr QColor Text(0x22, 0x28, 0x30);
constexpr QColor QuietText(0x69, 0x72, 0x7d);
constexpr QColor Accent(0x1f, 0x6f, 0xeb);
constexpr QColor Spoken(0xff, 0xd9, 0x66);
constexpr QColor Alarm(0xc6, 0x28, 0x28);
constexpr QColor Good(0x2e, 0x9e, 0x5b);

constexpr QColor BodyLight(0xfd, 0xfd, 0xfe);
constexpr QColor BodyDark(0xd3, 0xd8, 0xdf);
constexpr QColor BodyEdge(0xb4, 0xbb, 0xc5);
constexpr QColor Glass(0x08, 0x0a, 0x0c);
constexpr QColor GlassEdge(0x2a, 0x2f, 0x36);
constexpr QColor GlassText(0x8f, 0xa1, 0xb3);

constexpr QColor KeyTop(0x3b, 0x42, 0x4c);
constexpr QColor KeyBottom(0x2a, 0x30, 0x38);
constexpr QColor KeyPressed(0x1c, 0x21, 0x27);
constexpr QColor KeyText(0xf2, 0xf5, 0xf8);

/* Gives the whole program one light look, whatever the user's desktop is set to: the pen and the
 * paper are the same for everybody. After the application object was made. */
void apply();

} // namespace desklook

#endif
