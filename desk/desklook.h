#ifndef DESKLOOK_H
#define DESKLOOK_H

#include <QColor>
#include <QString>

/* Colours that the parts of the desk's window share. There are a light and a dark desk; the pen and
 * the paper are the same on both. */
namespace desklook {

struct Colours
{
    QColor desk;
    QColor mat; // under the page
    QColor panel;
    QColor panelEdge;
    QColor button;
    QColor buttonHover;
    QColor buttonPressed;
    QColor text;
    QColor quietText;
    QColor faintText; // of what cannot be used now
    QColor accent;
    QColor onAccent;
    QColor alarm;
    QColor handle; // of scroll bars
};

/* Those in force. */
const Colours& colours();

constexpr QColor Spoken(0xff, 0xd9, 0x66);
constexpr QColor SpokenText(0x22, 0x28, 0x30);

constexpr QColor BodyLight(0xfd, 0xfd, 0xfe);
constexpr QColor BodyMiddle(0xee, 0xf0, 0xf3);
constexpr QColor BodyDark(0xd3, 0xd8, 0xdf);
constexpr QColor BodyEdge(0xb4, 0xbb, 0xc5);
constexpr QColor BodyText(0x66, 0x70, 0x7c);
constexpr QColor Glass(0x08, 0x0a, 0x0c);
constexpr QColor GlassEdge(0x2a, 0x2f, 0x36);
constexpr QColor GlassText(0x9f, 0xb1, 0xc3);
constexpr QColor Focus(0x1f, 0x6f, 0xeb); // on the pen

constexpr QColor KeyTop(0x3b, 0x42, 0x4c);
constexpr QColor KeyBottom(0x2a, 0x30, 0x38);
constexpr QColor KeyPressed(0x1c, 0x21, 0x27);
constexpr QColor KeyText(0xf2, 0xf5, 0xf8);

constexpr int FieldHeight = 28; // of choosers, so that they stand in line with buttons

/* Whether the user's desktop is dark. Ask before the first apply(). */
bool isDesktopDark();

/* Gives the whole program one look, whatever style the user's desktop has. After the application
 * object was made. */
void apply(bool dark);
bool isDark();

/* The style sheet of the desk's windows, in the colours in force. */
QString styleSheet();

} // namespace desklook

#endif
