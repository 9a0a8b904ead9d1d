#include "tests/contract/dichost.h"

bool dichost::installDictionaries()
{
    return false;
}
