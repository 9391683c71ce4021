#include "archive/Questions.h"

namespace ZYN {

QString VerdictOf(int code)
{
    switch (code) {
    case -5:
        return QStringLiteral("ABORTED");
    case -3:
        return QStringLiteral("ERROR");
    case -1:
        return QStringLiteral("FAIL");
    case 0:
        return QStringLiteral("NOT TESTED");
    case 1:
        return QStringLiteral("PASS");
    case 6:
        return QStringLiteral("DONE");
    default:
        return QStringLiteral("CODE %1").arg(code);
    }
}

} // namespace ZYN
