#include "engines/cttsthread_setup.h"

#include "engines/translater.h"
#include "store/configreader.h"

namespace {

// No dictionary has this place: asking for it closes the one that is open.
constexpr int NoPlace = -1;

} // namespace

CTtsThread::~CTtsThread()
{
    wait();
}

void CTtsThread::setFlag(int dict, int value)
{
    m_dict = dict;
    m_value = value;
    m_job = Job::Change;
}

void CTtsThread::setOpen()
{
    m_job = Job::Open;
}

void CTtsThread::setClose()
{
    m_job = Job::Close;
}

// What has become of it is asked of the binding.
void CTtsThread::run()
{
    ConfigReader* const config = ConfigReader::Instance();
    Translater* const translater = Translater::Instance();
    const Job job = m_job;
    if (job == Job::Close) {
        translater->setDict(NoPlace, NoPlace);
        return;
    }
    if (job == Job::Change) {
        config->setLanDict(m_dict);
        config->setLanDictInfo(m_value);
    }
    const int pair = config->getLanDict();
    const int dict = config->getLanDictInfo();
    if (!translater->isOpen(pair, dict))
        translater->setDict(pair, dict);
}
