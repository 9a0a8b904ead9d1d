#ifndef SCAN_PEERS_H
#define SCAN_PEERS_H

#include "bench/scan/trial.h"

/* Other ways to join the same frames. What they make of them is cut out by the engine's own line
 * cutter, so that only the joining differs. */

/* OpenCV's phase correlation from each frame to the next, on the engine's own ink maps. */
LineResult phaseCorrelationResult(const SwipeCase& swiped, bool han,
                                  const std::vector<Frame>& frames);

/* OpenCV's Stitcher in SCANS mode, once with all frames that a third of a frame's width lies
 * between, for its time grows with the square of their number. */
LineResult scansStitcherResult(const SwipeCase& swiped, bool han, const std::vector<Frame>& frames);

/* Whether scansStitcherResult() was built. */
bool hasScansStitcher();

#endif
