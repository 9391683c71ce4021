#include "Records.h"

#include <pybind11/numpy.h>

#include <algorithm>
#include <limits>

#include <sys/mman.h>

namespace ZYN::Python {

namespace {

/// Of pages of 2 MiB a new array needs few, which the system hands out one by one.
void PreferLargePages(void* memory, std::size_t bytes)
{
    constexpr std::uintptr_t large = std::uintptr_t(1) << 21;
    const auto address = reinterpret_cast<std::uintptr_t>(memory);
    const std::uintptr_t first = (address + large - 1) / large * large;
    const std::uintptr_t end = (address + bytes) / large * large;
    if (first < end)
        madvise(reinterpret_cast<void*>(first), end - first, MADV_HUGEPAGE); // advice: it may be refused
}

/// A column of numbers, to be filled from front to back.
template <typename Item>
class Column {
public:
    Column(std::size_t size, const py::dtype& type)
        : m_array(type, py::ssize_t(size))
        , m_next(static_cast<Item*>(m_array.mutable_data()))
    {
        PreferLargePages(m_next, size * sizeof(Item));
    }
    explicit Column(std::size_t size)
        : Column(size, py::dtype::of<Item>())
    {
    }

    void Add(Item item) { *m_next++ = item; }
    void Add(Item item, std::size_t times) { m_next = std::fill_n(m_next, times, item); }
    void Add(const std::vector<Item>& items) { m_next = std::copy(items.begin(), items.end(), m_next); }
    const py::array& Take() const { return m_array; }

private:
    py::array m_array;
    Item* m_next;
};

/// Texts that values stand beside, each one object of Python, however many values it stands beside: who uses
/// one says so once.
class TextColumn {
public:
    explicit TextColumn(std::size_t size)
        : m_column(size, py::dtype("O"))
    {
    }

    /// Without counting that the text is used once more.
    void Add(PyObject* text) { m_column.Add(text); }
    void Add(const py::str& text, std::size_t times)
    {
        Use(text, times);
        m_column.Add(text.ptr(), times);
    }
    static void Use(const py::str& text, std::size_t times)
    {
        Py_SET_REFCNT(text.ptr(), Py_REFCNT(text.ptr()) + py::ssize_t(times));
    }
    const py::array& Take() const { return m_column.Take(); }

private:
    Column<PyObject*> m_column; // of a new array all are null
};

/// What a value needs of its run.
struct RunTexts {
    py::str serial, lot;
    std::int64_t start;
    std::size_t values = 0; ///< how many stand beside them
};

std::vector<RunTexts> TextsOf(const ValueArrays& arrays)
{
    std::vector<RunTexts> texts;
    texts.reserve(arrays.runs.size());
    const QString* lot = nullptr;
    py::str lotText;
    for (const MeasuredRun& run : arrays.runs) {
        if (!lot || run.place.lot != *lot) {
            lot = &run.place.lot;
            lotText = Str(*lot);
        }
        texts.push_back({Str(run.place.serial), lotText,
                         run.start.value_or(std::numeric_limits<std::int64_t>::min())}); // no time, to NumPy
    }
    for (const ValueSeries& series : arrays.series)
        for (const std::uint32_t run : series.runs)
            ++texts[run].values;
    for (const RunTexts& run : texts) {
        TextColumn::Use(run.serial, run.values);
        TextColumn::Use(run.lot, run.values);
    }
    return texts;
}

} // namespace

py::dict ColumnsOf(const ValueArrays& arrays)
{
    std::size_t size = 0;
    for (const ValueSeries& series : arrays.series)
        size += series.runs.size();
    const bool areSeveral = !arrays.series.empty() && !arrays.series.front().group.empty();
    TextColumn programs(areSeveral ? size : 0), paths(size), units(size), serials(size), lots(size);
    Column<std::int64_t> starts(size, py::dtype("datetime64[ms]"));
    Column<double> values(size), lowers(size), uppers(size);
    Column<std::int16_t> codes(size);
    const std::vector<RunTexts> runs = TextsOf(arrays);
    for (const ValueSeries& series : arrays.series) {
        const std::size_t count = series.runs.size();
        if (areSeveral)
            programs.Add(Str(series.group.front().second), count);
        paths.Add(Str(series.path), count);
        units.Add(Str(series.unit), count);
        lowers.Add(series.lower.value_or(std::numeric_limits<double>::quiet_NaN()), count);
        uppers.Add(series.upper.value_or(std::numeric_limits<double>::quiet_NaN()), count);
        values.Add(series.values);
        codes.Add(series.codes);
        for (const std::uint32_t at : series.runs) {
            serials.Add(runs[at].serial.ptr());
            lots.Add(runs[at].lot.ptr());
            starts.Add(runs[at].start);
        }
    }
    py::dict columns;
    if (areSeveral)
        columns["program"] = programs.Take();
    columns["path"] = paths.Take();
    columns["serial"] = serials.Take();
    columns["lot"] = lots.Take();
    columns["start"] = starts.Take();
    columns["value"] = values.Take();
    columns["unit"] = units.Take();
    columns["lower"] = lowers.Take();
    columns["upper"] = uppers.Take();
    columns["code"] = codes.Take();
    return columns;
}

} // namespace ZYN::Python
