#include "widgets/rowlayout.h"

#include <algorithm>

rowlayout::Place rowlayout::place(int width, int labelWidth, int valueWidth, int space)
{
    const int end = width - Margin;
    const int behindLabel = labelWidth > 0 ? Margin + labelWidth + space : 0;
    const int wanted = end - ValueIndent - valueWidth;
    const int x = std::max(0, std::min(ValueColumn, std::max(wanted, behindLabel)));
    return {std::max(0, x - space - Margin), x, std::max(0, end - x - ValueIndent)};
}
