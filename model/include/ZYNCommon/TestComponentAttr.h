#pragma once

#include <ZYNCommon/ZYNCommonGlobal.h>

#include <QtCore/QList>
#include <QtCore/QString>
#include <QtCore/QVariant>

namespace ZYN {

/// One attribute of a component, or a category that holds further ones. Owns its children.
class ZYNCOMMON_EXPORT TestComponentAttr {
public:
    /// Type of an attribute's value. Code 0 is a category, which has children and no value.
    enum TestComponentAttrType : int { Category = 0, Integer = 1, Real = 2, String = 3, Boolean = 4 };

    TestComponentAttr(const QString& name, TestComponentAttrType type, const QVariant& value = QVariant());
    /// Frees the whole tree without recursion, however deep it is.
    ~TestComponentAttr();
    TestComponentAttr(const TestComponentAttr&) = delete;
    TestComponentAttr& operator=(const TestComponentAttr&) = delete;

    QString GetName() const;
    TestComponentAttrType GetType() const;
    QVariant GetValue() const;
    void SetValue(const QVariant& value);
    /// Children in their order; owned by this object.
    QList<TestComponentAttr*> GetChildren() const;
    /// Takes ownership; null, itself and an item that has an owner already are ignored.
    void AddChild(TestComponentAttr* child);

    /// "Category", "Integer", "Real", "String", "Boolean"; an unknown code gives its number.
    static QString TypeToString(TestComponentAttrType type);

private:
    friend class CtrlAttributes;

    QString m_name;
    TestComponentAttrType m_type;
    QVariant m_value;
    QList<TestComponentAttr*> m_children;
    bool m_isOwned = false; ///< by a component's attributes or by another item
};

} // namespace ZYN
