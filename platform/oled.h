/* SPDX-License-Identifier: 0BSD */
/*
 * The display's refresh switch.
 *
 * The launcher may freeze the display while it takes the screen over; an application that goes on
 * drawing then switches the refresh back on.
 */
#ifndef OLED_H
#define OLED_H

#ifdef __cplusplus
extern "C" {
#endif

/* 1: the display follows the frame buffer again, at once; 0: it keeps the picture it shows. Any
 * thread. Returns 0, or -1 when there is no display. */
int oled_update_set(int on);

#ifdef __cplusplus
}
#endif
#endif
