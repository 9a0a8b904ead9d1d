#include "app/scanlanguagemenu.h"

#include "store/statisticmanager.h"

#include <QCollator>
#include <algorithm>

namespace {

constexpr int TraditionalChinese = 2;

} // namespace

QLocale localeOfLanguage(int code)
{
    if (code == TraditionalChinese)
        return {QLocale::Chinese, QLocale::TraditionalHanScript, QLocale::Taiwan};
    const QLocale locale(StatisticManager::IsoMapFun(code));
    return locale.language() == QLocale::C ? QLocale(QLocale::English) : locale;
}

bool comQt(const QCollator& order, const ScanLanInfoForSort& left, const ScanLanInfoForSort& right)
{
    return order.compare(left.displayName, right.displayName) < 0;
}

void sortScanLanMenu(QVector<ScanLanInfoForSort>& languages, const QLocale& locale)
{
    const QCollator order(locale);
    std::ranges::stable_sort(
        languages, [&order](const ScanLanInfoForSort& left, const ScanLanInfoForSort& right) {
            return comQt(order, left, right);
        });
}

int placeOfLanguage(const QVector<ScanLanInfoForSort>& languages, int row)
{
    const auto found = std::ranges::find(languages, row, &ScanLanInfoForSort::index);
    return found == languages.end() ? 0 : static_cast<int>(found - languages.begin());
}
