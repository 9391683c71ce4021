#include <ZYNCommon/LimitOperator.h>

#include <array>

namespace ZYN {

namespace {

struct OperatorText {
    LimitOperator::Code code;
    QStringView text;
};

constexpr std::array operatorTexts{
    OperatorText{LimitOperator::Equal, u"=="},  OperatorText{LimitOperator::NotEqual, u"!="},
    OperatorText{LimitOperator::Less, u"<"},    OperatorText{LimitOperator::LessEqual, u"<="},
    OperatorText{LimitOperator::Greater, u">"}, OperatorText{LimitOperator::GreaterEqual, u">="},
};

template <typename View>
LimitOperator::Code CodeOf(View text)
{
    for (const OperatorText& row : operatorTexts)
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

QString LimitOperator::ToString() const
{
    // The texts are constants: a report asks for them twice a row, so they are not copied.
    for (const OperatorText& row : operatorTexts)
        if (row.code == m_code)
            return QString::fromRawData(row.text.data(), row.text.size());
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
