#include "tests/unit/engines/translaterfixture.h"

#include "tests/fakes/calls.h"
#include "tests/unit/engines/freshsettings.h"

#include <QTest>

void TranslaterFixture::init()
{
    m_root = std::make_unique<TestRoot>();
    fakes::reset();
    freshSettings();
    CallLog::clear();
    m_items.clear();
    m_found = true;
    m_property = {};
}

void TranslaterFixture::cleanup()
{
    FakeDic::fail("ZEMBRA_DIC_Uninitialize", 0);
    FakeDic::fail("ZEMBRA_DIC_FreeTypeDicList", 0);
    FakeDic::fail("ZEMBRA_DIC_FreeDicList", 0);
    Translater::quitFun();
    QCOMPARE(FakeDic::misuses(), 0);
    fakes::reset();
    m_root.reset();
}

FakeDic::Dictionary TranslaterFixture::dictionary(const std::u16string& word,
                                                  std::vector<FakeDic::Entry> entries)
{
    FakeDic::Dictionary made;
    made.entries[word] = std::move(entries);
    return made;
}

FakeDic::Dictionary TranslaterFixture::named(std::u16string name)
{
    FakeDic::Dictionary made;
    made.name = std::move(name);
    return made;
}

int TranslaterFixture::lookUp(const QString& word)
{
    return Translater::Instance()->transWord(word, word, m_items, m_found, m_property);
}
