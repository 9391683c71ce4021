#include "lots/FigureSheet.h"

#include "files/Workbook.h"

#include <ZYNCommon/StatisticsData.h>
#include <ZYNCommon/StatisticsDataDecoration.h>
#include <ZYNCommon/StatisticsDataReport.h>
#include <ZYNCommon/TestComponent.h>
#include <ZYNCommon/ValidationInterface.h>

#include <cmath>

namespace ZYN::Tool {

namespace {

/// Makes the cells of a component.
class FigureCells {
public:
    FigureCells(const StatisticsData& data, bool scaled)
        : m_data(data)
        , m_validation(data.GetValidation())
        , m_display(scaled && m_validation ? m_validation->GetValueDisplay() : nullptr)
    {
        if (m_validation && MeasurementUnit::DigitBase(m_validation->GetMeasurementUnit().GetCode()) != 0)
            m_display = nullptr; // digits have no prefix
        m_texts.SetUseScaledData(m_display);
    }

    QList<SheetCell> Row() const
    {
        const TestComponent* const component = m_data.GetComponent();
        return {{m_data.GetProgramName()},
                {m_data.GetPath()},
                {component ? component->GetIdentString() : QString()},
                {component ? component->GetName() : QString()},
                {m_texts.GetUnitString()},
                Limit(&ValidationInterface::GetLowerLimit),
                Limit(&ValidationInterface::GetUpperLimit),
                {double(m_data.GetNrPass())},
                {double(m_data.GetNrFail()), m_data.GetNrFail() > 0},
                Figure(m_data.GetMean()),
                Figure(m_data.GetSigma()),
                Ratio(m_data.GetCpk()),
                Figure(m_data.GetMinimum()),
                Figure(m_data.GetMaximum())};
    }

private:
    // Where the figure does not exist, nothing.
    static SheetCell Ratio(double number) { return std::isfinite(number) ? SheetCell{number} : SheetCell(); }
    SheetCell Figure(double number) const { return std::isfinite(number) ? Value(number) : SheetCell(); }

    SheetCell Value(const QVariant& value) const
    {
        const bool isText = value.typeId() == QMetaType::QString;
        bool isNumber = false;
        // A display moves the decimal point of the shortest text, so that no digit is lost.
        const double number = (m_display ? QVariant(m_display->ToString(value)) : value).toDouble(&isNumber);
        if (value.isNull())
            return {};
        return isText || !isNumber ? SheetCell{value.toString()} : SheetCell{number};
    }

    SheetCell Limit(QVariant (ValidationInterface::*limit)() const) const
    {
        return m_validation ? Value(((*m_validation).*limit)()) : SheetCell();
    }

    const StatisticsData& m_data;
    const QSharedPointer<ValidationInterface> m_validation;
    const ValueDisplay* m_display;
    StatisticsDataDecoration m_texts{&m_data};
};

} // namespace

std::optional<QString> WriteFigureSheet(const StatisticsDataReport& report, bool scaled, const QString& path)
{
    Workbook workbook(
        path, QStringLiteral("statistics"),
        QStringLiteral("program path ident name unit lower upper passed failed mean sigma cpk min max")
            .split(QLatin1Char(' ')));
    for (const StatisticsData* const data : report.GetTestData())
        workbook.Add(FigureCells(*data, scaled).Row());
    return workbook.Close();
}

} // namespace ZYN::Tool
