/* What platform/oled.h promises, as far as a caller can see it. Built once for each display. */
#include "platform/oled.h"
#include "tests/contract/displayhost.h"

#include <QTest>
#include <future>

class ContractOled : public QObject
{
    Q_OBJECT

private slots:
    void withoutDisplayItFails();
    void withDisplayItSucceeds();
    void anyThreadMaySwitch();
};

void ContractOled::withoutDisplayItFails()
{
    displayhost::remove();
    QCOMPARE(oled_update_set(1), -1);
    QCOMPARE(oled_update_set(0), -1);
}

void ContractOled::withDisplayItSucceeds()
{
    displayhost::attach();
    QCOMPARE(oled_update_set(0), 0);
    QCOMPARE(oled_update_set(1), 0);
    QCOMPARE(oled_update_set(1), 0);
}

void ContractOled::anyThreadMaySwitch()
{
    displayhost::attach();
    auto other = std::async(std::launch::async, [] { return oled_update_set(0); });
    QCOMPARE(oled_update_set(1), 0);
    QCOMPARE(other.get(), 0);
}

QTEST_APPLESS_MAIN(ContractOled)
#include "tst_contract_oled.moc"
