#include "Application.h"

#include <QtGui/QGuiApplication>

#include <clocale>
#include <string>

namespace ZYN::Python {

void NeedApplication()
{
    if (QCoreApplication::instance())
        return;
    const std::string locale = std::setlocale(LC_ALL, nullptr);
    static char name[] = "zyn", option[] = "-platform", platform[] = "offscreen";
    static char* arguments[] = {name, option, platform, nullptr};
    static int count = 3;
    new QGuiApplication(count, arguments); // until the process ends: nobody knows who needs it last
    std::setlocale(LC_ALL, locale.c_str());
}

} // namespace ZYN::Python
