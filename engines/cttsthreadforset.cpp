#include "engines/cttsthreadforset.h"

#include "store/configreader.h"

CTtsThreadForSet::~CTtsThreadForSet()
{
    wait();
}

void CTtsThreadForSet::setFlag(int language)
{
    m_language = language;
}

void CTtsThreadForSet::run()
{
    ConfigReader::Instance()->setLanInfo(m_language);
}
