#include "Records.h"

#include <pybind11/numpy.h>

#include <limits>
#include <memory>

namespace ZYN::Python {

namespace {

/// Gives an array to NumPy as it is.
template <typename Item>
py::array HandOver(std::vector<Item>&& items, const py::dtype& type)
{
    auto owned = std::make_unique<std::vector<Item>>(std::move(items));
    const py::capsule owner(owned.get(), [](void* array) { delete static_cast<std::vector<Item>*>(array); });
    const std::vector<Item>& kept = *owned.release();
    return py::array(type, py::ssize_t(kept.size()), kept.data(), owner);
}

template <typename Item>
py::array HandOver(std::vector<Item>&& items)
{
    return HandOver(std::move(items), py::dtype::of<Item>());
}

/// A column of texts. Each text is one object of Python, however many values it stands beside.
class TextColumn {
public:
    explicit TextColumn(std::size_t size)
        : m_array(py::dtype("O"), py::ssize_t(size))
        , m_next(static_cast<PyObject**>(m_array.mutable_data()))
    {
    }

    void Add(const py::str& text)
    {
        PyObject* const former = *m_next; // of a new array None or nothing
        *m_next++ = text.inc_ref().ptr();
        Py_XDECREF(former);
    }
    const py::array& Take() const { return m_array; }

private:
    py::array m_array;
    PyObject** m_next;
};

/// What a value needs of its run.
struct RunTexts {
    py::str serial, lot;
    std::int64_t start;
};

std::vector<RunTexts> TextsOf(const std::vector<MeasuredRun>& runs)
{
    std::vector<RunTexts> texts;
    texts.reserve(runs.size());
    QString lot;
    py::str lotText;
    for (const MeasuredRun& run : runs) {
        if (run.place.lot != lot) {
            lot = run.place.lot;
            lotText = Str(lot);
        }
        texts.push_back({Str(run.place.serial), lotText,
                         run.start.value_or(std::numeric_limits<std::int64_t>::min())}); // no time, to NumPy
    }
    return texts;
}

/// All series in one array; of one series the array itself.
template <typename Item>
std::vector<Item> Joined(std::vector<ValueSeries>& series, std::vector<Item> ValueSeries::*items)
{
    if (series.size() == 1)
        return std::move(series.front().*items);
    std::vector<Item> joined;
    for (const ValueSeries& one : series)
        joined.insert(joined.end(), (one.*items).begin(), (one.*items).end());
    return joined;
}

std::vector<double> Limits(const std::vector<ValueSeries>& series, std::optional<double> ValueSeries::*limit)
{
    std::vector<double> limits;
    for (const ValueSeries& one : series)
        limits.insert(limits.end(), one.runs.size(),
                      (one.*limit).value_or(std::numeric_limits<double>::quiet_NaN()));
    return limits;
}

} // namespace

py::dict ColumnsOf(ValueArrays arrays)
{
    std::size_t size = 0;
    for (const ValueSeries& series : arrays.series)
        size += series.runs.size();
    const std::vector<RunTexts> runs = TextsOf(arrays.runs);
    std::vector<std::int64_t> starts;
    starts.reserve(size);
    const bool areSeveral = !arrays.series.empty() && !arrays.series.front().group.empty();
    TextColumn programs(areSeveral ? size : 0), paths(size), units(size), serials(size), lots(size);
    for (const ValueSeries& series : arrays.series) {
        const py::str path = Str(series.path), unit = Str(series.unit);
        const py::str program = areSeveral ? Str(series.group.front().second) : py::str();
        for (const std::uint32_t at : series.runs) {
            const RunTexts& run = runs[at];
            if (areSeveral)
                programs.Add(program);
            paths.Add(path);
            units.Add(unit);
            serials.Add(run.serial);
            lots.Add(run.lot);
            starts.push_back(run.start);
        }
    }
    py::dict columns;
    if (areSeveral)
        columns["program"] = programs.Take();
    columns["path"] = paths.Take();
    columns["serial"] = serials.Take();
    columns["lot"] = lots.Take();
    columns["start"] = HandOver(std::move(starts), py::dtype("datetime64[ms]"));
    columns["value"] = HandOver(Joined(arrays.series, &ValueSeries::values));
    columns["unit"] = units.Take();
    columns["lower"] = HandOver(Limits(arrays.series, &ValueSeries::lower));
    columns["upper"] = HandOver(Limits(arrays.series, &ValueSeries::upper));
    columns["code"] = HandOver(Joined(arrays.series, &ValueSeries::codes));
    return columns;
}

} // namespace ZYN::Python
