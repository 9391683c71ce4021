#include "report/CellText.h"

#include <QtCore/QVariant>
#include <QtTest/QTest>

#include <bit>
#include <cmath>
#include <limits>
#include <random>

using namespace ZYN;

/// Numbers in cells read as `QVariant::toString` writes them, however large and whatever their last digits.
class CellTextTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void RealNumbersReadAsQtWritesThem()
    {
        std::mt19937_64 random(20261125);
        QList<double> numbers{0.0,   -0.0,   1e-4,     0.001, 1e5,     100'000.5, 0x1p53, 0x1p53 - 1,
                              1e300, 5e-324, INFINITY, NAN,   -0.0123, -1.5e-30,  1.5e10};
        for (int i = 0; i < 20'000; ++i) {
            numbers.append(std::bit_cast<double>(random()));
            // As instruments give them: few digits, some places moved.
            numbers.append(double(random() >> (10 + random() % 54)) /
                           std::pow(10.0, int(random() % 30) - 10));
        }
        for (const double number : numbers) {
            const CellText text = CellText::Real(number);
            QCOMPARE(text.View(), QVariant(number).toString());
        }
    }

    void IntegersStandBetweenTheirTexts()
    {
        const qint64 smallest = std::numeric_limits<qint64>::min();
        const CellText text = CellText::Integer(smallest, QLatin1StringView("=\""), QLatin1StringView("\""));
        QCOMPARE(text.View(), u"=\"-9223372036854775808\"");
    }
};

QTEST_APPLESS_MAIN(CellTextTest)
#include "CellTextTest.moc"
