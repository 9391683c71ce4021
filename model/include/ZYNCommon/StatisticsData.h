#pragma once

#include <ZYNCommon/ZYNCommonGlobal.h>
#include <ZYNCommon/ZYNTypes.h>

#include <QtCore/QList>
#include <QtCore/QSharedPointer>
#include <QtCore/QString>
#include <QtCore/QStringList>
#include <QtCore/QVariant>

#include <memory>
#include <vector>

namespace ZYN {

class TestComponent;
class TestResult;
class ValidationInterface;

/// Counts and values of one test component over many runs.
///
/// Mean and variance are kept up to date with every value (B. P. Welford, "Note on a method for
/// calculating corrected sums of squares and products", Technometrics 4, 1962), so they stay exact for
/// large values with a small spread. The cost of a value is constant. Every run is counted, only finite
/// numbers enter the statistics: texts, variants of type `bool`, not-a-number and infinities do not. (A
/// measured boolean is an integer of value 1 or 0 and does, so its mean is the share of ones.)
class ZYNCOMMON_EXPORT StatisticsData {
public:
    /// \param component shared for the life of this object; may be null
    explicit StatisticsData(QSharedPointer<TestComponent> component);
    ~StatisticsData();
    StatisticsData(const StatisticsData&) = delete;
    StatisticsData& operator=(const StatisticsData&) = delete;

    TestComponent* GetComponent() const;
    /// Name of the program that the component belongs to.
    QString GetProgramName() const;
    /// The names from the group down to the component, joined by " / "; the second component of one path ends
    /// in
    /// "#2". Empty for a program.
    QString GetPath() const;
    /// \param names from the program down to the component
    /// \param ordinal from 1, among the components with these names
    void SetPath(const QStringList& names, int ordinal);
    /// The result with an index from 0, null outside the range. Made from the value that was kept, with
    /// the newest validation; owned by this object and valid until the next call of this operation (a
    /// million results at a time would take ten times the memory of the values). Not thread-safe.
    TestResult* GetResult(int index) const;
    /// Number of results kept.
    int Size() const;
    int GetNrPass() const;
    int GetNrFail() const;
    /// Whether there is at least one finite number, so that mean, minimum and maximum exist.
    bool HasStatisticDetails() const;

    /// Counts a run: code 1 is a pass, a negative code a failure, others are neither. The validation is
    /// the newest, whose limits count from now on; null leaves the limits as they are.
    void AddValue(EN_ZYN_RESULT result, const QVariant& value,
                  QSharedPointer<ValidationInterface> validation);

    /// Number of values that entered the statistics.
    qint64 GetValueCount() const;
    /// Not-a-number where the figure does not exist (no value; one value for the sigma).
    double GetMean() const;
    /// Sample standard deviation (divisor n - 1).
    double GetSigma() const;
    double GetMinimum() const;
    double GetMaximum() const;
    /// The smaller of (upper - mean) / (3 sigma) and (mean - lower) / (3 sigma), one-sided where only
    /// one limit exists (D. C. Montgomery, "Introduction to Statistical Quality Control").
    /// Not-a-number without limits or sigma, and for a sigma of 0. Only a bound counts as a limit: a finite
    /// number with "<" or "<=". An inverted validation has no capability.
    double GetCpk() const;
    /// How capable the component was with one set of limits, of which a lot has several when they changed.
    struct Capability {
        QSharedPointer<ValidationInterface> limits; ///< null for values that were judged by none
        double cpk;                                 ///< as `GetCpk`, of all values with these limits
        double cpkPassed;                           ///< of those that passed (a code above 0)
    };
    /// One for each set of limits, in the order in which they were met.
    QList<Capability> GetCapabilities() const;
    /// The newest validation; null when there was none.
    QSharedPointer<ValidationInterface> GetValidation() const;
    /// Whether limits differed between runs: values, operators, unit or inversion.
    bool HaveLimitsChanged() const;

private:
    friend class StatisticsDataReport;

    /// A value in 16 bytes; what is neither a 64-bit integer nor a real number stands in `m_others`.
    struct Run {
        enum Kind : quint8 { Nothing, Integer, Real, Other };
        quint64 bits;
        EN_ZYN_RESULT result;
        Kind kind;
    };

    /// Wider than the values: no digit of them is lost, and differences of huge ones do not overflow.
    struct Moments {
        qint64 count = 0;
        long double mean = 0.0L;
        long double squares = 0.0L;

        void Enter(double number);
        double Sigma() const;
        double Cpk(const ValidationInterface* limits) const;
    };
    struct LimitSet {
        QSharedPointer<ValidationInterface> limits;
        Moments all;
        Moments passed;
    };

    void Keep(EN_ZYN_RESULT result, const QVariant& value);
    void TakeLimits(QSharedPointer<ValidationInterface> validation);
    void Enter(EN_ZYN_RESULT result, double number);
    QVariant ValueOf(const Run& run) const;

    QSharedPointer<TestComponent> m_component;
    QSharedPointer<ValidationInterface> m_validation;
    std::vector<Run> m_runs;
    std::vector<QVariant> m_others;
    mutable std::unique_ptr<TestResult> m_result;
    int m_passed = 0;
    int m_failed = 0;
    Moments m_moments;
    std::vector<LimitSet> m_limitSets;
    std::size_t m_limitSet = 0; ///< the newest validation's
    double m_minimum = 0.0;
    double m_maximum = 0.0;
    bool m_isOwned = false; ///< by a report
    QStringList m_names;    ///< shared with those of other entries, unlike a joined path
    int m_ordinal = 1;
};

} // namespace ZYN
