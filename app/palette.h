#ifndef PALETTE_H
#define PALETTE_H

#include <QPalette>

/* The display's palette for QApplication::setPalette(): white on black in every group, what is
 * selected black on white. */
QPalette screenPalette();

#endif
