#include "desk/runtimedir.h"

#include <QDir>

namespace {

constexpr const char* Variable = "XDG_RUNTIME_DIR";

} // namespace

// Socket paths are limited to 107 bytes, so the folder stands right below the temporary folder.
RuntimeDir::RuntimeDir()
    : m_hostDir(qEnvironmentVariable(Variable)),
      m_dir(QDir::tempPath() + QLatin1String("/swipeline-desk-XXXXXX"))
{
    if (m_dir.isValid())
        qputenv(Variable, m_dir.path().toLocal8Bit());
}

RuntimeDir::~RuntimeDir()
{
    if (m_hostDir.isEmpty())
        qunsetenv(Variable);
    else
        qputenv(Variable, m_hostDir.toLocal8Bit());
}
