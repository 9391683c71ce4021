#include "RunComparison.h"

#include "RunText.h"

#include <QtCore/QXmlStreamReader>

#include <algorithm>
#include <cmath>
#include <limits>
#include <vector>

namespace ZYN {

namespace {

using namespace Qt::StringLiterals;

/// A component of a run with all that is said about it.
struct Item {
    const RunComponent* component = nullptr;
    int parent = -1; ///< index among the items
    double value = 0;
    int code = 0;
    float seconds = 0;
    QString text, comment, attribute;
    double lower = 0, upper = 0, nominal = 0;
    std::string lowerOperator, upperOperator;
    QString lowerText, upperText;
    bool inverted = false;
};

QString TextAt(const Run::Texts& texts, std::size_t position)
{
    for (const auto& [place, text] : texts)
        if (place == position)
            return QString::fromStdString(text);
    return {};
}

/// The components that the import reads.
std::vector<Item> ItemsOf(const Run& run)
{
    constexpr double none = std::numeric_limits<double>::quiet_NaN();
    std::vector<Item> items;
    std::vector<int> places(run.codes.size(), -1);
    for (std::size_t p = 0; p < run.codes.size(); ++p) {
        const RunComponent& component = run.layout->components[p];
        if (run.codes[p] == Run::NoCode || component.kind == ComponentKind::Parameter)
            continue;
        places[p] = int(items.size());
        Item item;
        item.component = &component;
        item.parent = component.parent < 0 ? -1 : places[std::size_t(component.parent)];
        item.value = run.values[p];
        item.code = run.codes[p];
        item.seconds = run.seconds[p];
        item.text = TextAt(run.texts, p);
        item.comment = TextAt(run.comments, p);
        item.attribute = TextAt(run.attributes, p);
        item.lower = run.limits ? run.limits->lower[p] : none;
        item.upper = run.limits ? run.limits->upper[p] : none;
        item.nominal = run.limits ? run.limits->nominal[p] : none;
        if (run.limits) {
            item.lowerOperator = run.limits->lowerOperator[p];
            item.upperOperator = run.limits->upperOperator[p];
            item.lowerText = TextAt(run.limits->lowerTexts, p);
            item.upperText = TextAt(run.limits->upperTexts, p);
            item.inverted = run.limits->inverted[p];
        }
        items.push_back(item);
    }
    return items;
}

bool IsSame(double a, double b)
{
    return a == b || (std::isnan(a) && std::isnan(b));
}

/// Whether there are limits for values of a type.
bool IsKnownType(int dataType)
{
    constexpr int integer = 7;
    constexpr int text = 9;
    return dataType >= integer && dataType <= text;
}

/// What was not measured is 0 to the import.
bool IsNothing(const Item& item)
{
    return item.text.isEmpty() && (std::isnan(item.value) || item.value == 0);
}

bool HasNoLimits(const Item& item)
{
    return item.lowerOperator.empty() && item.upperOperator.empty() && std::isnan(item.nominal) &&
           !item.inverted && item.component->unitCode == 0 && item.component->factor == 0;
}

/// Integer limits have 32 bits in the model, digits of a base as a pattern.
bool IsSameLimit(double read, double imported)
{
    if (IsSame(read, imported))
        return true;
    constexpr double smallest = std::numeric_limits<int>::min();
    constexpr double largest = std::numeric_limits<int>::max();
    constexpr double patterns = 4294967296.0;
    if (std::isnan(read))
        return imported == 0;
    if (std::clamp(std::trunc(read), smallest, largest) == imported)
        return true;
    const double low = std::fmod(std::trunc(read), patterns);
    return imported >= 0 && imported < patterns &&
           (low == imported || low + patterns == imported || std::abs(read) > 9e15);
}

bool IsSameIdent(const std::string& read, const std::string& imported)
{
    return read == imported ||
           QString::number(QString::fromStdString(read).toInt()) == QString::fromStdString(imported);
}

QString LimitsDifference(const Item& a, const Item& b)
{
    const auto one = [](const std::string& readOperator, double read, const QString& readText,
                        const std::string& operatorText, double imported, const QString& text) {
        // Without a number the import takes 0.
        if (readOperator.empty() && imported == 0)
            return true;
        if (readOperator != operatorText)
            return false;
        return readOperator.empty() || (readText == text && IsSame(read, imported)) ||
               IsSameLimit(read, imported);
    };
    if (!one(a.lowerOperator, a.lower, a.lowerText, b.lowerOperator, b.lower, b.lowerText))
        return u"lower limit"_s;
    if (!one(a.upperOperator, a.upper, a.upperText, b.upperOperator, b.upper, b.upperText))
        return u"upper limit"_s;
    if (a.inverted != b.inverted)
        return u"inversion"_s;
    return IsSame(a.nominal, b.nominal) || std::isnan(b.nominal) ? QString() : u"nominal value"_s;
}

QString ItemDifference(const Item& a, const Item& b, bool unitTexts)
{
    const RunComponent& read = *a.component;
    const RunComponent& imported = *b.component;
    if (read.kind != imported.kind || read.name != imported.name || a.parent != b.parent ||
        !IsSameIdent(read.ident, imported.ident) || read.dataType != imported.dataType)
        return u"component"_s;
    if (a.code != b.code || !IsSame(double(a.seconds), double(b.seconds)) || a.comment != b.comment ||
        a.attribute != b.attribute)
        return u"result"_s;
    if (read.dataType == 0)
        return {};
    if (HasNoLimits(a))
        return {}; // the import reads it by the limits before it, and as a number where there were none
    if (!(IsNothing(a) && IsNothing(b)) && (!IsSame(a.value, b.value) || a.text != b.text))
        return u"value"_s;
    if (!IsKnownType(read.dataType))
        return {}; // has limits and unit of the one before
    if (read.unitCode != imported.unitCode || (unitTexts && read.unit != imported.unit))
        return u"unit"_s;
    return LimitsDifference(a, b);
}

QString RunDifference(const Run& read, const Run& imported, bool unitTexts)
{
    const auto header = [](Run run, bool withProgram) {
        RunLayout program;
        if (withProgram) {
            program.program = run.layout->program;
            program.version = run.layout->version;
        }
        run.layout = std::make_shared<RunLayout>(program);
        run.codes.clear();
        return RunText(std::span(&run, 1));
    };
    const bool hasProgram = !read.layout->program.empty() || !read.codes.empty();
    if (header(read, hasProgram) != header(imported, hasProgram))
        return header(read, hasProgram) + u"is not\n"_s + header(imported, hasProgram);
    if (hasProgram && !IsSameIdent(read.layout->programIdent, imported.layout->programIdent))
        return u"ident of the program"_s;
    const std::vector<Item> a = ItemsOf(read);
    const std::vector<Item> b = ItemsOf(imported);
    if (a.size() != b.size())
        return u"%1 components are not %2"_s.arg(a.size()).arg(b.size());
    for (std::size_t i = 0; i < a.size(); ++i) {
        const QString difference = ItemDifference(a[i], b[i], unitTexts);
        if (!difference.isEmpty())
            return difference + u" of "_s + QString::fromStdString(a[i].component->path);
    }
    return {};
}

} // namespace

QString DifferenceToImport(std::span<const Run> read, std::span<const Run> imported, bool unitTexts)
{
    if (read.size() != imported.size())
        return u"%1 runs are not %2"_s.arg(read.size()).arg(imported.size());
    for (std::size_t i = 0; i < read.size(); ++i) {
        const QString difference = RunDifference(read[i], imported[i], unitTexts);
        if (!difference.isEmpty())
            return u"run %1: "_s.arg(i) + difference + u'\n' + RunText(read) + u"\nimported:\n"_s +
                   RunText(imported);
    }
    return {};
}

bool HasUsualOrder(const QByteArray& report)
{
    struct Open {
        QString name;
        int results = 0;
        int programs = 0;
        bool hasFactor = false;
        bool hasDuration = false;
        int type = 0;
    };
    std::vector<Open> open;
    QXmlStreamReader reader(report);
    while (!reader.atEnd()) {
        reader.readNext();
        if (reader.isEndElement()) {
            const Open& ended = open.back();
            const bool isComponent = ended.name == "Testprogram"_L1 || ended.name == "TestGroup"_L1 ||
                                     ended.name == "TestStep"_L1 || ended.name == "TestMeasurement"_L1;
            if ((isComponent && ended.results != 1) || (ended.name == "Limits"_L1 && !ended.hasFactor) ||
                (ended.name == "Result"_L1 && !ended.hasDuration) ||
                (ended.name == "TestResultSet"_L1 && ended.programs > 1))
                return false;
            open.pop_back();
        }
        if (!reader.isStartElement())
            continue;
        const QString name = reader.name().toString();
        const int type = reader.attributes().value("Type"_L1).toInt();
        if (!open.empty()) {
            Open& parent = open.back();
            const bool isHeld = name == "TestStep"_L1 || (name == "TestMeasurement"_L1);
            if (name == "Limits"_L1 && !IsKnownType(type) && IsKnownType(parent.type))
                return false;
            if ((isHeld && parent.results != 1) || (name == "Limits"_L1 && parent.results != 0))
                return false;
            parent.results += name == "Result"_L1;
            parent.programs += name == "Testprogram"_L1;
            parent.hasDuration = parent.hasDuration || reader.attributes().value("Name"_L1) == "Duration"_L1;
            parent.hasFactor = parent.hasFactor || reader.attributes().hasAttribute("Factor"_L1);
        }
        open.push_back({name, 0, 0, false, false, type});
    }
    return true;
}

} // namespace ZYN
