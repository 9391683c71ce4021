#include <ZYNCommon/TestComponentFactory.h>
#include <ZYNCommon/ValidationInterface.h>
#include <ZYNCommon/ValueComperator.h>

#include <QtTest/QTest>

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

/// One validation of each data type by its name, with every property set.
Validation Complete(const QString& type)
{
    Validation validation;
    if (type == QLatin1String("integer"))
        validation.reset(
            TestComponentFactory::CreateValidationInt(0, "<=", "<", -5, 70000, 1, 2, 3, 4, 5, 6));
    else if (type == QLatin1String("real"))
        validation.reset(TestComponentFactory::CreateValidationReal(1, "<", "<=", 0.1, 1e-9, 1, 2, 3, 4, 5, 6,
                                                                    -3, 1.0 / 3.0));
    else
        validation.reset(TestComponentFactory::CreateValidationString(0, "==", QStringLiteral("V 1.2 \u00E4"),
                                                                      1, 3, 4, 6));
    validation->SetResultInverted(true);
    return validation;
}

Validation Blank(const QString& type)
{
    if (type == QLatin1String("integer"))
        return Int(nullptr, 0, nullptr, 0);
    if (type == QLatin1String("real"))
        return Real("", 0, "", 0);
    return Text(nullptr, QString());
}

} // namespace

class ValidationTest : public QObject {
    Q_OBJECT
private slots:
    void ComparesReals();
    void NotANumberHoldsNowhere();
    void ClosedAndOpenIntervals_data();
    void ClosedAndOpenIntervals();
    void WhatIsNoValueNeverPasses();
    void IntegersCompareExactly();
    void TextsCompareByCodeUnit();
    void LimitsExistByTheirOperator();
    void ShowsLimitsScaled();
    void PatternsOf32Bits();
    void PropertiesSurviveAsTexts_data();
    void PropertiesSurviveAsTexts();
    void PropertiesNotSetAreInvalid();
    void RefusesPropertiesThatDoNotFit_data();
    void RefusesPropertiesThatDoNotFit();
    void BinIdsCanBeToldByName();
    void PropertiesTakeLimitsAway();
    void IntegerValidationCanHaveAPrefix();
};

void ValidationTest::ComparesReals()
{
    QVERIFY(ValueComperator::Verify(1.0, 2.0, LimitOperator::Less));
    QVERIFY(!ValueComperator::Verify(2.0, 2.0, LimitOperator::Less));
    QVERIFY(ValueComperator::Verify(2.0, 2.0, LimitOperator::LessEqual));
    QVERIFY(!ValueComperator::Verify(1.0, 2.0, LimitOperator::Greater));
    QVERIFY(ValueComperator::Verify(2.0, 2.0, LimitOperator::GreaterEqual));
    QVERIFY(ValueComperator::Verify(-0.0, 0.0, LimitOperator::Equal));
    QVERIFY(ValueComperator::Verify(Infinity, 1e308, LimitOperator::NotEqual));
    QVERIFY(ValueComperator::Verify(5.0, 2.0, LimitOperator::None));
}

void ValidationTest::NotANumberHoldsNowhere()
{
    for (int code = LimitOperator::None; code <= LimitOperator::GreaterEqual; ++code) {
        const auto op = static_cast<LimitOperator::Code>(code);
        QVERIFY(!ValueComperator::Verify(NaN, 1.0, op));
        QVERIFY(!ValueComperator::Verify(1.0, NaN, op));
        QVERIFY(!ValueComperator::Verify(NaN, NaN, op));
    }
}

void ValidationTest::ClosedAndOpenIntervals_data()
{
    QTest::addColumn<QByteArray>("lowerOp");
    QTest::addColumn<QByteArray>("upperOp");
    QTest::addColumn<QString>("passing"); // of the values 0.9, 1, 1.5, 2 and 2.1
    QTest::newRow("closed") << QByteArray("<=") << QByteArray("<=") << "-+++-";
    QTest::newRow("open") << QByteArray("<") << QByteArray("<") << "--+--";
    QTest::newRow("only lower") << QByteArray("<=") << QByteArray() << "-++++";
    QTest::newRow("only upper") << QByteArray("") << QByteArray("<") << "+++--";
    QTest::newRow("equal to the lower") << QByteArray("==") << QByteArray() << "-+---";
    QTest::newRow("neither of both") << QByteArray("!=") << QByteArray("!=") << "+-+-+";
    QTest::newRow("above the upper, below the lower") << QByteArray(">") << QByteArray(">=") << "-----";
    QTest::newRow("no limits") << QByteArray("?") << QByteArray(" ") << "+++++";
}

void ValidationTest::ClosedAndOpenIntervals()
{
    QFETCH(QByteArray, lowerOp);
    QFETCH(QByteArray, upperOp);
    const Validation validation = Real(lowerOp.constData(), 1.0, upperOp.constData(), 2.0);
    const auto verdicts = [&validation] {
        QString text;
        for (const double value : {0.9, 1.0, 1.5, 2.0, 2.1})
            text += QLatin1Char(validation->Validate(value) ? '+' : '-');
        return text;
    };
    QFETCH(QString, passing);
    QCOMPARE(verdicts(), passing);
    validation->SetResultInverted(true);
    for (QChar& verdict : passing)
        verdict = QLatin1Char(verdict == QLatin1Char('+') ? '-' : '+');
    QCOMPARE(verdicts(), passing);
}

void ValidationTest::WhatIsNoValueNeverPasses()
{
    const QList<QVariant> never{QVariant(),
                                QVariant(QMetaType::fromType<double>()),
                                NaN,
                                std::numeric_limits<float>::quiet_NaN(),
                                QStringLiteral("1.5"),
                                QVariantList{1.5}};
    for (const bool inverted : {false, true}) {
        const Validation real = Real("!=", 1.0, "<", 2.0);
        const Validation unlimited = Real(nullptr, 0, nullptr, 0);
        const Validation integer = Int("<=", 1, nullptr, 0);
        for (const Validation& validation : {std::cref(real), std::cref(unlimited), std::cref(integer)}) {
            validation->SetResultInverted(inverted);
            for (const QVariant& value : never)
                QVERIFY2(!validation->Validate(value), value.typeName());
        }
        const Validation text = Text("!=", QStringLiteral("x"));
        text->SetResultInverted(inverted);
        QVERIFY(!text->Validate(QVariant()));
        const Validation limitNaN = Real("<=", NaN, nullptr, 0);
        limitNaN->SetResultInverted(inverted);
        QVERIFY(!limitNaN->Validate(1.0));
    }
    QVERIFY(Real("<", 1.0, nullptr, 0)->Validate(Infinity));
    QVERIFY(!Real("<", 1.0, "<=", 1e308)->Validate(Infinity));
}

void ValidationTest::IntegersCompareExactly()
{
    const qint64 big = (Q_INT64_C(1) << 53) + 1; // the next number down is the nearest double
    const Validation validation = Int("==", 0, nullptr, 0);
    QVERIFY(validation->SetProperty(QStringLiteral("Lower"), big));
    QVERIFY(validation->Validate(big));
    QVERIFY(!validation->Validate(big - 1));
    QVERIFY(!validation->Validate(double(big)));
    QCOMPARE(validation->GetLowerLimitText(), QStringLiteral("9007199254740993"));

    const Validation positive = Int("<", 0, nullptr, 0);
    QVERIFY(positive->Validate(std::numeric_limits<qulonglong>::max()));
    QVERIFY(positive->Validate(qulonglong(1) << 63));
    QVERIFY(!positive->Validate(std::numeric_limits<qlonglong>::min()));
    QVERIFY(positive->Validate(true));
    QVERIFY(positive->Validate(0.5));
    QVERIFY(!positive->Validate(false));
}

void ValidationTest::TextsCompareByCodeUnit()
{
    QVERIFY(Text("==", QStringLiteral("V1.2"))->Validate(QStringLiteral("V1.2")));
    QVERIFY(!Text("==", QStringLiteral("V1.2"))->Validate(QStringLiteral("v1.2")));
    QVERIFY(Text("==", QString())->Validate(QString()));
    QVERIFY(Text("==", QStringLiteral("12"))->Validate(12));
    QVERIFY(Text("<=", QStringLiteral("B"))->Validate(QStringLiteral("a")));
    QVERIFY(!Text("<", QStringLiteral("b"))->Validate(QStringLiteral("a")));
    QVERIFY(Text("<", QStringLiteral("z"))->Validate(QStringLiteral("\u00E4")));
    QVERIFY(Text(nullptr, QStringLiteral("x"))->Validate(QStringLiteral("anything")));
    const Validation text = Text("!=", QStringLiteral("bad"));
    QVERIFY(text->HasLowerLimit());
    QVERIFY(!text->HasUpperLimit());
    QVERIFY(!text->HasNominal());
    QCOMPARE(text->GetLowerLimitText(), QStringLiteral("bad"));
    QCOMPARE(text->GetUpperLimitText(), QString());
}

void ValidationTest::LimitsExistByTheirOperator()
{
    const Validation none = Real(nullptr, 1, "", 2);
    QVERIFY(!none->HasLowerLimit());
    QVERIFY(!none->HasUpperLimit());
    QVERIFY(!none->HasNominal());
    QVERIFY(!none->GetLowerLimit().isValid());
    QVERIFY(!none->GetUpperLimit().isValid());
    QVERIFY(!none->GetNominal().isValid());
    QCOMPARE(none->GetUpperLimitText(), QString());
    QCOMPARE(none->GetUpperOperator().GetCode(), LimitOperator::None);
    QVERIFY(none->GetValueDisplay());

    const Validation upper = Int(nullptr, 1, "<=", 2);
    QVERIFY(!upper->HasLowerLimit());
    QVERIFY(upper->HasUpperLimit());
    QCOMPARE(upper->GetUpperLimit().toInt(), 2);
    QVERIFY(!upper->HasNominal());
}

void ValidationTest::ShowsLimitsScaled()
{
    const Validation validation = Real("<=", 0.0123, "<", 1.5, -3, 0.7);
    QCOMPARE(validation->GetLowerLimitText(), QStringLiteral("12.3"));
    QCOMPARE(validation->GetUpperLimitText(), QStringLiteral("1500"));
    QCOMPARE(validation->GetNominalText(), QStringLiteral("700"));
    QCOMPARE(validation->GetLowerLimit().toDouble(), 0.0123);
    QCOMPARE(validation->GetValueDisplay()->GetScaleString(), QStringLiteral("m"));
    QCOMPARE(validation->GetMeasurementUnit().GetCode(), MeasurementUnit::Volt);
    QCOMPARE(int(Real("<", 1, "<", 2, QStringLiteral("kilo"))->GetValueDisplay()->GetScaleFactor()), 0);
}

void ValidationTest::PatternsOf32Bits()
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
    QCOMPARE(hex->GetLowerLimitText(), QStringLiteral("ffffffff"));
    QCOMPARE(Int("==", -1, nullptr, 0)->GetLowerLimitText(), QStringLiteral("-1"));
}

void ValidationTest::PropertiesSurviveAsTexts_data()
{
    QTest::addColumn<QString>("type");
    for (const char* type : {"integer", "real", "text"})
        QTest::newRow(type) << QString::fromLatin1(type);
}

void ValidationTest::PropertiesSurviveAsTexts()
{
    QFETCH(QString, type);
    const Validation from = Complete(type);
    const Validation to = Blank(type);
    const QList<QString> names = from->GetPropertyNames();
    for (const QString& name : names) {
        const QVariant value = from->GetProperty(name);
        QVERIFY2(value.isValid(), qPrintable(name));
        QVERIFY2(to->SetProperty(name, value.toString()), qPrintable(name));
    }
    for (const QString& name : names)
        QCOMPARE(to->GetProperty(name), from->GetProperty(name));
    QCOMPARE(to->GetLowerLimit(), from->GetLowerLimit());
    QCOMPARE(to->GetLowerOperator().GetCode(), from->GetLowerOperator().GetCode());
    QCOMPARE(to->GetUpperLimitText(), from->GetUpperLimitText());
    QCOMPARE(to->GetUpperOperator().GetCode(), from->GetUpperOperator().GetCode());
    QCOMPARE(to->GetNominal(), from->GetNominal());
    QVERIFY(to->IsResultInverted());
}

void ValidationTest::PropertiesNotSetAreInvalid()
{
    for (const char* type : {"integer", "real", "text"}) {
        const Validation blank = Blank(QString::fromLatin1(type));
        QStringList set;
        for (const QString& name : blank->GetPropertyNames())
            if (blank->GetProperty(name).isValid())
                set.append(name);
        set.removeOne(QStringLiteral("ScaleFactor"));
        QCOMPARE(set, QStringList{QStringLiteral("InvertResult")});
        QVERIFY(!blank->GetProperty(QStringLiteral("lower")).isValid());
    }
}

void ValidationTest::RefusesPropertiesThatDoNotFit_data()
{
    QTest::addColumn<QString>("type");
    QTest::addColumn<QString>("name");
    QTest::addColumn<QVariant>("value");
    const auto row = [](const char* type, const char* name, const QVariant& value) {
        QTest::addRow("%s %s %s", type, name, qPrintable(value.toString()))
            << QString::fromLatin1(type) << QString::fromLatin1(name) << value;
    };
    row("integer", "Lower", QStringLiteral("1.5"));
    row("integer", "Lower", 1.5);
    row("integer", "Lower", 1e19);
    row("integer", "Lower", std::numeric_limits<qulonglong>::max());
    row("integer", "Lower", QString());
    row("integer", "Nominal", 1);
    row("real", "Upper", QStringLiteral("1,5"));
    row("real", "Upper", QStringLiteral("1e999"));
    row("real", "CompLower", QStringLiteral("=<"));
    row("real", "InvertResult", QStringLiteral("maybe"));
    row("real", "InvertResult", 2);
    row("real", "ScaleFactor", QStringLiteral("k"));
    row("real", "ScaleFactor", Q_INT64_C(4294967297));
    row("real", "BinIdPass", QStringLiteral("-2"));
    row("real", "BinIdPass", QStringLiteral("2147483648"));
    row("real", "BinIdFail", 1);
    row("text", "Upper", QStringLiteral("x"));
    row("text", "BinIdUpper", 1);
    row("text", "Name", QStringLiteral("x"));
}

void ValidationTest::RefusesPropertiesThatDoNotFit()
{
    QFETCH(QString, type);
    QFETCH(QString, name);
    QFETCH(QVariant, value);
    const Validation validation = Complete(type);
    const QVariant before = validation->GetProperty(name);
    QVERIFY(!validation->SetProperty(name, value));
    QCOMPARE(validation->GetProperty(name), before);
}

void ValidationTest::BinIdsCanBeToldByName()
{
    for (const char* type : {"integer", "real", "text"}) {
        const Validation validation = Complete(QString::fromLatin1(type));
        QCOMPARE(validation->GetProperty(QStringLiteral("BinIdPass")).toInt(), 3);
        QCOMPARE(validation->GetProperty(QStringLiteral("SoftBinIdPass")).toInt(), 6);
        const QString fail = QLatin1StringView(type) == QLatin1StringView("text")
                                 ? QStringLiteral("SoftBinIdFail")
                                 : QStringLiteral("SoftBinIdLower");
        QCOMPARE(validation->GetProperty(fail).toInt(), 4);
    }
}

void ValidationTest::PropertiesTakeLimitsAway()
{
    const Validation validation = Real("<=", 1, "<=", 2, -3, 1.5);
    QVERIFY(validation->SetProperty(QStringLiteral("CompLower"), QString()));
    QVERIFY(!validation->HasLowerLimit());
    QVERIFY(validation->Validate(-100));
    QVERIFY(validation->SetProperty(QStringLiteral("Upper"), QVariant()));
    QVERIFY(!validation->HasUpperLimit());
    QVERIFY(validation->Validate(100));
    QVERIFY(validation->SetProperty(QStringLiteral("Nominal"), QVariant()));
    QVERIFY(!validation->HasNominal());
}

void ValidationTest::IntegerValidationCanHaveAPrefix()
{
    const Validation validation = Int("<=", 1500, nullptr, 0, MeasurementUnit::Hertz);
    const ValueDisplay* display = validation->GetValueDisplay();
    QVERIFY(validation->SetProperty(QStringLiteral("ScaleFactor"), QStringLiteral("3")));
    QCOMPARE(validation->GetValueDisplay(), display);
    QCOMPARE(validation->GetLowerLimitText(), QStringLiteral("1.5"));
    QCOMPARE(display->GetScaleString(), QStringLiteral("k"));
}

QTEST_APPLESS_MAIN(ValidationTest)
#include "ValidationTest.moc"
