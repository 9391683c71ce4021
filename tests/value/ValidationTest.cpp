

#include "support/Model.h"
#include "support/Test.h"

#include <limits>
#include <memory>

using namespace ZYN;

namespace {

using Validation = std::unique_ptr<ValidationInterface>;

const double NaN = std::numeric_limits<double>::quiet_NaN();
const double Infinity = std::numeric_limits<double>::infinity();

Validation Int(const char* lowerOp, int lower, const char* upperOp, int upper, int unit = 0)
{
    return Validation(TestComponentFactory::CreateValidationInt(unit, lowerOp, upperOp, lower, upper, -1, -1,
                                                                -1, -1, -1, -1));
}

Validation Real(const char* lowerOp, double lower, const char* upperOp, double upper,
                const QVariant& factor = QVariant(), double nominal = NaN)
{
    return Validation(TestComponentFactory::CreateValidationReal(
        MeasurementUnit::Volt, lowerOp, upperOp, lower, upper, -1, -1, -1, -1, -1, -1, factor, nominal));
}

Validation Text(const char* op, const QString& text)
{
    return Validation(TestComponentFactory::CreateValidationString(0, op, text, -1, -1, -1, -1));
}

/// A validation of a data type with every property set, and one with none.
std::pair<Validation, Validation> CompleteAndBlank(const QString& type)
{
    using Factory = TestComponentFactory;
    const auto inverted = [](ValidationInterface* validation) {
        validation->SetResultInverted(true);
        return Validation(validation);
    };
    if (type == u"integer")
        return {inverted(Factory::CreateValidationInt(0, "<=", "<", -5, 70000, 1, 2, 3, 4, 5, 6)),
                Int(nullptr, 0, nullptr, 0)};
    if (type == u"real")
        return {
            inverted(Factory::CreateValidationReal(1, "<", "<=", 0.1, 1e-9, 1, 2, 3, 4, 5, 6, -3, 1.0 / 3.0)),
            Real("", 0, "", 0)};
    return {inverted(Factory::CreateValidationString(0, "==", "V 1.2 \u00E4", 1, 3, 4, 6)),
            Text(nullptr, QString())};
}

} // namespace

class ValidationTest : public QObject {
    Q_OBJECT
private slots:
    void ClosedAndOpenIntervals_data()
    {

        // The verdicts of 0.9, 1, 1.5, 2 and 2.1.
        const Rows<QByteArray, QByteArray, QString> row;
        row("closed", "<=", "<=", "-+++-");
        row("open", "<", "<", "--+--");
        row("only lower", "<=", QByteArray(), "-++++");
        row("equal to the lower", "==", QByteArray(), "-+---");
        row("above the upper, below the lower", ">", ">=", "-----");
        row("neither of both", "!=", "!=", "+-+-+");
        row("no limits", "?", " ", "+++++");
    }
    void ClosedAndOpenIntervals()
    {
        auto [lowerOp, upperOp, passing] = CurrentRow<QByteArray, QByteArray, QString>();
        const Validation validation = Real(lowerOp.constData(), 1.0, upperOp.constData(), 2.0);
        const auto verdicts = [&validation] {
            QString text;
            for (const double value : {0.9, 1.0, 1.5, 2.0, 2.1})
                text += QLatin1Char(validation->Validate(value) ? '+' : '-');
            return text;
        };
        QCOMPARE(verdicts(), passing);
        validation->SetResultInverted(true);
        for (QChar& verdict : passing)
            verdict = QLatin1Char(verdict == QLatin1Char('+') ? '-' : '+');
        QCOMPARE(verdicts(), passing);
    }

    void WhatIsNoValueNeverPasses()
    {
        const QList<QVariant> never{QVariant(), QVariant(QMetaType::fromType<double>()),
                                    NaN,        std::numeric_limits<float>::quiet_NaN(),
                                    "1.5",      QVariantList{1.5}};
        for (const bool inverted : {false, true}) {
            const Validation real = Real("!=", 1.0, "<", 2.0);
            const Validation unlimited = Real(nullptr, 0, nullptr, 0);
            const Validation integer = Int("<=", 1, nullptr, 0);
            for (const Validation& validation : {std::cref(real), std::cref(unlimited), std::cref(integer)}) {
                validation->SetResultInverted(inverted);
                for (const QVariant& value : never)
                    QVERIFY2(!validation->Validate(value), value.typeName());
            }
            const Validation text = Text("!=", "x");
            text->SetResultInverted(inverted);
            QVERIFY(!text->Validate(QVariant()));
            const Validation limitNaN = Real("<=", NaN, nullptr, 0);
            limitNaN->SetResultInverted(inverted);
            QVERIFY(!limitNaN->Validate(1.0));
        }
        QVERIFY(Real("<", 1.0, nullptr, 0)->Validate(Infinity));
        QVERIFY(!Real("<", 1.0, "<=", 1e308)->Validate(Infinity));
    }

    void IntegersCompareExactly()
    {
        const qint64 big = (Q_INT64_C(1) << 53) + 1; // the next number down is the nearest double
        const Validation validation = Int("==", 0, nullptr, 0);
        QVERIFY(validation->SetProperty("Lower", big));
        QVERIFY(validation->Validate(big));
        QVERIFY(!validation->Validate(big - 1));
        QVERIFY(!validation->Validate(double(big)));
        QCOMPARE(validation->GetLowerLimitText(), "9007199254740993");

        const Validation positive = Int("<", 0, nullptr, 0);
        QVERIFY(positive->Validate(std::numeric_limits<qulonglong>::max()));
        QVERIFY(positive->Validate(qulonglong(1) << 63));
        QVERIFY(!positive->Validate(std::numeric_limits<qlonglong>::min()));
        QVERIFY(positive->Validate(true));
        QVERIFY(positive->Validate(0.5));
        QVERIFY(!positive->Validate(false));
    }

    void TextsCompareByCodeUnit()
    {
        QVERIFY(!Text("==", "V1.2")->Validate("v1.2"));
        QVERIFY(Text("==", QString())->Validate(QString()));
        QVERIFY(Text("==", "12")->Validate(12));
        QVERIFY(Text("<=", "B")->Validate("a"));
        QVERIFY(!Text("<", "b")->Validate("a"));
        QVERIFY(Text("<", "z")->Validate("\u00E4"));
    }

    void PatternsOf32Bits()
    {
        for (const int unit : {MeasurementUnit::Hexadecimal, MeasurementUnit::Binary}) {
            const Validation validation = Int("<=", int(0x80000000u), "<=", int(0xFFFFFFFFu), unit);
            QVERIFY(validation->Validate(qlonglong(0x80000000u)));
            QVERIFY(validation->Validate(qlonglong(0xFFFFFFFFu)));
            QVERIFY(!validation->Validate(qlonglong(0x7FFFFFFF)));
            QVERIFY(!validation->Validate(qlonglong(0x100000000)));
            QVERIFY(!validation->Validate(-1));
        }
        const Validation hex = Int("==", int(0xFFFFFFFFu), nullptr, 0, MeasurementUnit::Hexadecimal);
        QCOMPARE(hex->GetLowerLimitText(), "ffffffff");
        QCOMPARE(Int("==", -1, nullptr, 0)->GetLowerLimitText(), "-1");
    }

    void PropertiesSurviveAsTexts()
    {
        for (const char* type : {"integer", "real", "text"}) {
            const auto [from, to] = CompleteAndBlank(QString::fromLatin1(type));
            const QList<QString> names = from->GetPropertyNames();
            for (const QString& name : names)
                QVERIFY2(to->SetProperty(name, from->GetProperty(name).toString()), qPrintable(name));
            for (const QString& name : names) {
                QVERIFY2(from->GetProperty(name).isValid(), qPrintable(name));
                QCOMPARE(to->GetProperty(name), from->GetProperty(name));
            }
            QCOMPARE(to->GetLowerLimit(), from->GetLowerLimit());
            QCOMPARE(to->GetUpperOperator().GetCode(), from->GetUpperOperator().GetCode());
            QCOMPARE(to->GetNominal(), from->GetNominal());
            QVERIFY(to->IsResultInverted());
        }
    }

    void RefusesPropertiesThatDoNotFit()
    {
        const std::tuple<const char*, const char*, QVariant> misfits[] = {
            {"integer", "Lower", "1.5"},     {"integer", "Lower", std::numeric_limits<qulonglong>::max()},
            {"integer", "Lower", QString()}, {"real", "Upper", "1,5"},
            {"real", "CompLower", "=<"},     {"real", "ScaleFactor", Q_INT64_C(4294967297)},
            {"real", "BinIdPass", "-2"},     {"real", "BinIdPass", "2147483648"},
            {"real", "BinIdFail", 1},        {"text", "Upper", "x"},
            {"text", "Name", "x"},
        };
        for (const auto& [type, name, value] : misfits) {
            const Validation validation = CompleteAndBlank(type).first;
            const QVariant before = validation->GetProperty(name);
            QVERIFY2(!validation->SetProperty(name, value), qPrintable(value.toString()));
            QCOMPARE(validation->GetProperty(name), before);
        }
    }

    void PropertiesTakeLimitsAway()
    {
        const Validation validation = Real("<=", 1, "<=", 2, -3, 1.5);
        QVERIFY(validation->SetProperty("CompLower", QString()) && !validation->HasLowerLimit());
        QVERIFY(validation->SetProperty("Upper", QVariant()) && !validation->HasUpperLimit());
        QVERIFY(validation->Validate(-100) && validation->Validate(100));
        QVERIFY(validation->SetProperty("Nominal", QVariant()) && !validation->HasNominal());
    }

    void IntegerValidationCanHaveAPrefix()
    {
        const Validation validation = Int("<=", 1500, nullptr, 0, MeasurementUnit::Hertz);
        QVERIFY(validation->SetProperty("ScaleFactor", "3"));
        QCOMPARE(validation->GetLowerLimitText(), "1.5");
        QCOMPARE(int(Real("<", 1, "<", 2, "kilo")->GetValueDisplay()->GetScaleFactor()), 0);
    }
};

QTEST_APPLESS_MAIN(ValidationTest)
#include "ValidationTest.moc"
