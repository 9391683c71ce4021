#pragma once

#include <ZYNCommon/ZYNCommonGlobal.h>
#include <ZYNCommon/ZYNTypes.h>

#include <QtCore/QDateTime>
#include <QtCore/QSharedPointer>
#include <QtCore/QString>
#include <QtCore/QVariant>

#include <memory>

namespace ZYN {

class TestComponent;
class TestResultSet;
class ValidationInterface;
class ValueDisplay;

/// The result of one component in one run.
///
/// Whoever creates a result owns it until `TestResultSet::AddResult`, from then on the set does. The
/// component is kept alive by the result; the component only observes its results.
class ZYNCOMMON_EXPORT TestResult {
public:
    /// \param component what the result belongs to; may be null (a result with no owner)
    explicit TestResult(QSharedPointer<TestComponent> component);
    /// Withdraws itself from its component.
    ~TestResult();
    TestResult(const TestResult&) = delete;
    TestResult& operator=(const TestResult&) = delete;

    const QSharedPointer<TestComponent>& GetComponent() const { return m_component; }

    /// The code that was set; else derived: a measured value is validated (passed or failed; done when
    /// there is no validation), a program, group or step takes the worst of its children's results in
    /// the same result set, and what has neither was not tested.
    EN_ZYN_RESULT GetResult() const;
    /// "PASS", "FAIL", "NOT TESTED", "ERROR", "ABORTED", "DONE"; another code as "CODE 42".
    QString GetResultString() const;
    /// Text of a result code, as `GetResultString` gives it.
    static QString ResultToString(EN_ZYN_RESULT result);

    /// Data type of the component's value, as `ZYNTools::AddressToDataTypeString` gives it.
    QString GetValueTypeString() const;
    /// The measured value; invalid when nothing was measured. Valid until the next one is set.
    const QVariant& GetValue() const { return m_value; }
    /// The value as text: scaled and in the radix of its unit with a display, plain without one (a
    /// hexadecimal or binary unit still gives its digits). Empty for an invalid value.
    QString GetValueString(const ValueDisplay* display) const;
    /// The limit as text, scaled with a display, plain without. Empty when there is no such limit.
    QString GetLowerLimitString(const ValueDisplay* display) const;
    QString GetUpperLimitString(const ValueDisplay* display) const;
    /// Unit with the display's prefix in front.
    /// \param bracketed "[mV]" instead of "mV"; an empty unit stays empty
    QString GetUnitString(const ValueDisplay* display, bool bracketed) const;
    /// The unit without prefix in plain ASCII ("Ohm", "degC"), for binary records.
    QString GetBaseUnitString() const;

    QString GetComment() const;
    QString GetAttribute() const;
    /// When the component was executed: ISO 8601 with offset; empty when unknown.
    QString GetTimeString() const;
    /// Duration in seconds.
    double GetDuration() const;
    /// Duration in milliseconds as a plain number.
    QString GetDurationString() const;
    /// Duration for people ("1.250 s", "2 min 03 s").
    QString GetDurationStringFormated() const;
    /// The validation that the value was judged with; null when there was none.
    const QSharedPointer<ValidationInterface>& GetValidation() const { return m_validation; }

    void SetResult(EN_ZYN_RESULT result);
    /// Ignored for a program, group or step: these measure nothing. A real number without a fraction
    /// becomes an integer where the component's type is integer; a boolean becomes 1 or 0.
    void SetValue(const QVariant& value);
    void SetComment(const QString& comment);
    void SetAttribute(const QString& attribute);
    /// Kept verbatim.
    void SetTimeString(const QString& time);
    void SetTime(const QDateTime& time);
    /// \param seconds duration in seconds
    void SetDuration(double seconds);
    void SetValidation(QSharedPointer<ValidationInterface> validation);

private:
    friend class TestResultSet;
    /// Whether a set holds this result, and no later one, for a component.
    bool IsCurrentIn(const TestResultSet* set, const TestComponent* component) const
    {
        return m_set == set && m_component.data() == component && !m_superseded;
    }
    EN_ZYN_RESULT DerivedResult() const;

    /// Texts that few results have.
    struct Remarks {
        QString comment;
        QString attribute;
    };
    Remarks& NeedRemarks();

    QSharedPointer<TestComponent> m_component;
    QSharedPointer<ValidationInterface> m_validation;
    const TestResultSet* m_set = nullptr;
    QVariant m_value;
    EN_ZYN_RESULT m_result = ZYN_RESULT_NOT_TESTED;
    bool m_hasResult = false; ///< else it is derived
    /// The set holds a later result of the component.
    bool m_superseded = false;
    double m_duration = 0.0;
    QString m_time;
    std::unique_ptr<Remarks> m_remarks;
};

} // namespace ZYN
