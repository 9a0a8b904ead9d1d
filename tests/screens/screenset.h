/*
 * The surroundings in which screens are drawn for pictures: the application's style, palette and
 * font, and nothing of the host's.
 */
#ifndef SCREENSET_H
#define SCREENSET_H

#include <QTest>

namespace screenset {

/* Before the application object is made: one device pixel a pixel, 96 dots per inch, no host
 * theme. */
void beforeApplication();

/* Style, palette and font as start-up sets them. The font comes from FONTCONFIG_FILE when that is
 * set (as on a pen), else the font file is registered by path and stands in for the family. Ends
 * the program with a message when the font is missing. */
void afterApplication();

} // namespace screenset

#define SCREEN_TEST_MAIN(Test)                                                                     \
    int main(int argc, char** argv)                                                                \
    {                                                                                              \
        screenset::beforeApplication();                                                            \
        QApplication application(argc, argv);                                                      \
        screenset::afterApplication();                                                             \
        Test test;                                                                                 \
        return QTest::qExec(&test, argc, argv);                                                    \
    }

#endif
