#pragma once

#include <ZYNCommon/ZYNCommonGlobal.h>

#include <QtCore/QString>

namespace ZYN {

class TestPlanData;

/// A named category of a test plan's attributes. Owns its content.
class ZYNCOMMON_EXPORT TestPlanCategory {
public:
    explicit TestPlanCategory(const QString& name);
    /// Frees nested categories without recursion, however deep they are.
    ~TestPlanCategory();
    TestPlanCategory(const TestPlanCategory&) = delete;
    TestPlanCategory& operator=(const TestPlanCategory&) = delete;

    QString GetName() const;
    /// Takes ownership and frees the content that was there. Content that has an owner already is ignored.
    void SetAttributes(TestPlanData* attributes);
    /// Null until set.
    TestPlanData* GetAttributes() const;

private:
    friend class TestPlanData;
    QString m_name;
    TestPlanData* m_attributes = nullptr;
    bool m_isOwned = false; ///< by attributes or by another category
};

} // namespace ZYN
