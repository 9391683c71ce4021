#include <ZYNCommon/TestComponentAttr.h>

#include <utility>

namespace ZYN {

TestComponentAttr::TestComponentAttr(const QString& name, TestComponentAttrType type, const QVariant& value)
    : m_name(name)
    , m_type(type)
    , m_value(value)
{
}

TestComponentAttr::~TestComponentAttr()
{
    // Each item hands its children over before it goes, so that depth costs no stack.
    QList<TestComponentAttr*> pending = std::exchange(m_children, {});
    while (!pending.isEmpty()) {
        TestComponentAttr* const item = pending.takeLast();
        pending += std::exchange(item->m_children, {});
        delete item;
    }
}

QString TestComponentAttr::GetName() const
{
    return m_name;
}

TestComponentAttr::TestComponentAttrType TestComponentAttr::GetType() const
{
    return m_type;
}

QVariant TestComponentAttr::GetValue() const
{
    return m_value;
}

void TestComponentAttr::SetValue(const QVariant& value)
{
    m_value = value;
}

QList<TestComponentAttr*> TestComponentAttr::GetChildren() const
{
    return m_children;
}

void TestComponentAttr::AddChild(TestComponentAttr* child)
{
    if (child && child != this && !std::exchange(child->m_isOwned, true))
        m_children.append(child);
}

QString TestComponentAttr::TypeToString(TestComponentAttrType type)
{
    switch (type) {
    case Category:
        return QStringLiteral("Category");
    case Integer:
        return QStringLiteral("Integer");
    case Real:
        return QStringLiteral("Real");
    case String:
        return QStringLiteral("String");
    case Boolean:
        return QStringLiteral("Boolean");
    }
    return QString::number(type);
}

} // namespace ZYN
