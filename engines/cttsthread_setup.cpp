#include "engines/cttsthread_setup.h"

#include "store/configreader.h"

CTtsThread::~CTtsThread()
{
    wait();
}

void CTtsThread::setFlag(int dict, int value)
{
    m_dict = dict;
    m_value = value;
}

void CTtsThread::run()
{
    ConfigReader* const config = ConfigReader::Instance();
    config->setLanDict(m_dict);
    config->setLanDictInfo(m_value);
}
