#include "Environment.h"

#include "export/ModelAdapter.h"

#include <atomic>

namespace ZYN::Environment {

namespace {

struct Fixed {
    QDateTime now;
    QString engineVersion;
};

std::atomic<const Fixed*> fixed = nullptr;

} // namespace

QDateTime Now()
{
    const Fixed* const values = fixed.load();
    return values ? values->now : QDateTime::currentDateTime();
}

QString EngineVersion()
{
    const Fixed* const values = fixed.load();
    return values ? values->engineVersion : ModelAdapter::EngineVersion();
}

Override::Override(const QDateTime& now, const QString& engineVersion)
{
    delete fixed.exchange(new Fixed{now, engineVersion});
}

Override::~Override()
{
    delete fixed.exchange(nullptr);
}

} // namespace ZYN::Environment
