#include "app/renamerules.h"

#include <QTest>

using renamerules::Refusal;
Q_DECLARE_METATYPE(renamerules::Refusal)

class TestRenameRules : public QObject
{
    Q_OBJECT

private slots:
    void names_data();
    void names();
    void eachOfTheNineCharactersIsRefused();
    void refusalsAreTold();
    void questionShowsBothNames();
};

void TestRenameRules::names_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<Refusal>("refusal");
    const auto row = [](const char* what, const QString& name, Refusal refusal) {
        QTest::newRow(what) << name << refusal;
    };
    row("ordinary", QStringLiteral("notes"), Refusal::None);
    row("nothing", QString(), Refusal::Empty);
    row("ten characters", QStringLiteral("0123456789"), Refusal::None);
    row("eleven characters", QStringLiteral("01234567890"), Refusal::TooLong);
    row("eleven, some invalid: too long first", QStringLiteral("<>:\"/\\|?*<>"), Refusal::TooLong);
    row("ten Chinese characters", QStringLiteral("一二三四五六七八九十"), Refusal::None);
    row("half a surrogate pair", QString(QChar(0xd800)), Refusal::InvalidCharacter);
    row("character beyond 16 bits", QString::fromUcs4(U"\U00020000"), Refusal::None);
    row("dot at the end", QStringLiteral("Hello."), Refusal::None);
    row("hidden", QStringLiteral(".hidden"), Refusal::None);
    row("console", QStringLiteral("CON"), Refusal::Reserved);
    row("console, small, with ending", QStringLiteral("con.a"), Refusal::Reserved);
    row("port", QStringLiteral("Lpt9"), Refusal::Reserved);
    row("port zero is none", QStringLiteral("com0"), Refusal::None);
    row("begins like a device", QStringLiteral("contents"), Refusal::None);
    row("ends the listed name early", QStringLiteral("a.txt.b"), Refusal::Reserved);
}

void TestRenameRules::names()
{
    QFETCH(QString, name);
    QTEST(renamerules::judge(name), "refusal");
}

void TestRenameRules::eachOfTheNineCharactersIsRefused()
{
    for (const QChar c : QStringLiteral("|<>?:\"\\/*")) {
        const QString name = QStringLiteral("a") + c;
        QVERIFY2(!renamerules::judgeName(name), qPrintable(name));
        QCOMPARE(renamerules::judge(name), Refusal::InvalidCharacter);
    }
    QVERIFY(renamerules::judgeName(QStringLiteral("a.b,c;d!'e-_ (%)")));
}

void TestRenameRules::refusalsAreTold()
{
    QCOMPARE(renamerules::text(Refusal::None), QString());
    QCOMPARE(renamerules::text(Refusal::Empty), QStringLiteral("The name is empty."));
    QCOMPARE(renamerules::text(Refusal::TooLong), QStringLiteral("String is too long."));
    QCOMPARE(renamerules::text(Refusal::InvalidCharacter), QStringLiteral("Invalid character."));
    QCOMPARE(renamerules::text(Refusal::Reserved), QStringLiteral("This name cannot be used."));
}

void TestRenameRules::questionShowsBothNames()
{
    QCOMPARE(renamerules::question(QStringLiteral("%1 old"), QStringLiteral("new")),
             QStringLiteral("Rename [%1 old] to [new]"));
}

QTEST_APPLESS_MAIN(TestRenameRules)
#include "tst_renamerules.moc"
