#include <ZYNCommon/LimitOperator.h>

#include <array>

namespace ZYN {

namespace {

struct OperatorText {
    LimitOperator::Code code;
    QLatin1StringView text;
};

constexpr std::array OperatorTexts{
    OperatorText{LimitOperator::Equal, QLatin1StringView("==")},
    OperatorText{LimitOperator::NotEqual, QLatin1StringView("!=")},
    OperatorText{LimitOperator::Less, QLatin1StringView("<")},
    OperatorText{LimitOperator::LessEqual, QLatin1StringView("<=")},
    OperatorText{LimitOperator::Greater, QLatin1StringView(">")},
    OperatorText{LimitOperator::GreaterEqual, QLatin1StringView(">=")},
};

template <typename View>
LimitOperator::Code CodeOf(View text)
{
    for (const OperatorText& row : OperatorTexts)
        if (row.text == text)
            return row.code;
    return LimitOperator::None;
}

} // namespace

LimitOperator::LimitOperator()
    : m_code(None)
{
}

LimitOperator::LimitOperator(Code code)
    : m_code(code)
{
}

LimitOperator::Code LimitOperator::GetCode() const
{
    return m_code;
}

QString LimitOperator::ToString() const
{
    for (const OperatorText& row : OperatorTexts)
        if (row.code == m_code)
            return row.text;
    return QString();
}

LimitOperator LimitOperator::FromString(const QString& text)
{
    return CodeOf(QStringView(text).trimmed());
}

LimitOperator LimitOperator::FromString(const char* text)
{
    return CodeOf(QLatin1StringView(text).trimmed());
}

} // namespace ZYN
