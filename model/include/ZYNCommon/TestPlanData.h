#pragma once

#include <ZYNCommon/ZYNCommonGlobal.h>

#include <QtCore/QList>
#include <QtCore/QMap>
#include <QtCore/QString>
#include <QtCore/QStringList>
#include <QtCore/QVariant>

namespace ZYN {

class TestPlanCategory;

/// A bag of named values that can also hold categories. Owns its categories.
class ZYNCOMMON_EXPORT TestPlanData {
public:
    TestPlanData();
    /// Frees nested categories without recursion, however deep they are.
    ~TestPlanData();
    TestPlanData(const TestPlanData&) = delete;
    TestPlanData& operator=(const TestPlanData&) = delete;

    /// Adds the value or replaces the one of that name; the name keeps its place.
    void SetProperty(const QString& name, const QVariant& value);
    /// Takes ownership; null and a category that has an owner already are ignored.
    void AddCategory(TestPlanCategory* category);

    /// Names in the order in which they were first set.
    QStringList GetPropertyNames() const;
    /// Invalid when there is none of that name.
    QVariant GetProperty(const QString& name) const;
    bool HasProperty(const QString& name) const;
    /// Categories in their order; owned by this object.
    QList<TestPlanCategory*> GetCategories() const;

private:
    friend class TestPlan;
    friend class TestPlanCategory;

    QStringList m_names;
    QMap<QString, QVariant> m_values;
    QList<TestPlanCategory*> m_categories;
    bool m_isOwned = false; ///< by a plan or a category
};

} // namespace ZYN
