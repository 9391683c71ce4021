#pragma once

#include <ZYNCommon/TestComponentAttr.h>

#include <QtCore/QString>
#include <QtCore/QStringList>
#include <QtCore/QVariant>

#include <optional>

namespace ZYN {

class TestComponent;
class TestPlanData;

/// Puts the values of a plan into one component. Each value that does not fit becomes a problem, the others
/// are taken over.
class PlanApplication {
public:
    PlanApplication(TestComponent* component, QStringList& problems);

    /// The properties of the component's validation. "Name" is the component's own and is not applied.
    void SetValidation(const TestPlanData& data);
    /// Replaces the component's attributes.
    void SetAttributes(const TestPlanData& data);
    /// "LogInReport" and "Enabled".
    void SetSwitches(const TestPlanData& data);
    /// Whether the component took anything over.
    bool HasChanged() const { return m_changed; }

private:
    /// \param known the component's attribute of that name; null when it had none
    TestComponentAttr* MakeAttribute(const QString& name, const QVariant& value,
                                     const TestComponentAttr* known);
    std::optional<bool> Switch(const TestPlanData& data, const QString& name);
    void Report(const QString& problem);
    void ReportValue(const QString& name, const QVariant& value);

    TestComponent* m_component;
    QStringList& m_problems;
    bool m_changed = false;
};

} // namespace ZYN
