#pragma once

#include <ZYNCommon/ZYNCommonGlobal.h>

#include <QtCore/QFileInfo>
#include <QtCore/QHash>
#include <QtCore/QString>
#include <QtCore/QStringList>

namespace ZYN {

class TestPlanData;
class TestProgram;

/// A test plan: per component ident a validation, an attribute set and a property set. Owns them.
/// Of several sets for one ident and kind the last one counts; the one before is freed.
class ZYNCOMMON_EXPORT TestPlan {
public:
    explicit TestPlan(QFileInfo fileInfo);
    ~TestPlan();
    TestPlan(const TestPlan&) = delete;
    TestPlan& operator=(const TestPlan&) = delete;

    /// These take ownership; null and data that have an owner already are ignored.
    void AddProperties(const QString& key, TestPlanData* data);
    void AddValidation(const QString& key, TestPlanData* data);
    void AddAttributes(const QString& key, TestPlanData* data);

    QFileInfo GetFileInfo() const;
    /// Idents of all components of the plan, in the order in which they were first added.
    QStringList GetKeys() const;
    /// Null when the plan has none for this ident. Owned by the plan.
    const TestPlanData* GetProperties(const QString& key) const;
    const TestPlanData* GetValidation(const QString& key) const;
    const TestPlanData* GetAttributes(const QString& key) const;

    /// What `ApplyTo` did.
    struct Applied {
        int components = 0;      ///< components that took something over
        QStringList unknownKeys; ///< idents of the plan that the program does not have
        QStringList problems;    ///< one line for each value that did not fit
    };
    /// Applies the plan to the components of a program by their ident: validation properties, the
    /// attribute tree, log-in-report and enabled. The plan values replace the component's; what the plan
    /// does not name stays as it is. Validations are changed in place, also for results that share them:
    /// apply a plan before the run. Attributes keep the type that the component gives them, else they get
    /// the type of the plan's value.
    ///
    /// An ident that several components share says nothing about which one is meant: none of them is
    /// changed, and it is told as a problem. Null does nothing.
    Applied ApplyTo(TestProgram* program) const;

private:
    struct Entry {
        TestPlanData* properties = nullptr;
        TestPlanData* validation = nullptr;
        TestPlanData* attributes = nullptr;
    };
    Entry& EntryFor(const QString& key);

    QFileInfo m_fileInfo;
    QStringList m_keys;
    QHash<QString, Entry> m_entries;
};

} // namespace ZYN
