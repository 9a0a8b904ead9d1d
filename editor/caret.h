#ifndef CARET_H
#define CARET_H

/* Width of the editor's caret in pixels. One, because the glyphs leave their first column free;
 * none while a word is marked, which shows the place by itself. */
namespace caret {

constexpr int Width = 1;
constexpr int WidthWhileMarking = 0;

} // namespace caret

#endif
