#include "tests/contract/dichost.h"
#include "tests/fakes/fakedic.h"

std::vector<std::string> dichost::installDictionaries()
{
    FakeDic::reset();
    FakeDic::Dictionary one;
    one.entries[u"house"] = {{u"house", u"a building", 1}, {u"House", u"a chamber", 2}};
    one.name = u"Clef \U0001D11E";
    one.origin = u"Old prints\nPublic domain";
    FakeDic::Dictionary two;
    two.entries[u"maison"] = {{u"maison", u"house", 0}};
    FakeDic::addPair(101, 104, u"English-German", {one, two});
    FakeDic::Dictionary gone;
    gone.away = true;
    FakeDic::addPair(103, 101, u"French-English", {gone, two});
    return {"/nowhere/one/", "/nowhere/two/"};
}
