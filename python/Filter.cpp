#include "Filter.h"

namespace ZYN::Python {

TimeBound TimeOf(const py::handle& time)
{
    const py::module_ datetime = py::module_::import("datetime");
    const py::object type = datetime.attr("datetime");
    py::object at = py::reinterpret_borrow<py::object>(time);
    if (py::isinstance<py::str>(at))
        at = type.attr("fromisoformat")(at);
    else if (!py::isinstance(at, type) && py::isinstance(at, datetime.attr("date")))
        at = type.attr("combine")(at, datetime.attr("time")());
    if (!py::isinstance(at, type))
        throw py::type_error("a time is a datetime, a date or a text such as '2026-11-24T13:00'");
    const bool byTesterClock = at.attr("tzinfo").is_none();
    if (byTesterClock)
        at = at.attr("replace")(py::arg("tzinfo") = datetime.attr("timezone").attr("utc"));
    const py::object epoch = type(1970, 1, 1, py::arg("tzinfo") = datetime.attr("timezone").attr("utc"));
    const py::object milliseconds =
        (at - epoch).attr("__floordiv__")(datetime.attr("timedelta")(py::arg("milliseconds") = 1));
    return {milliseconds.cast<std::int64_t>(), byTesterClock};
}

RunFilter FilterOf(const py::kwargs& wanted)
{
    RunFilter filter;
    const std::pair<const char*, QString*> texts[] = {{"product", &filter.product},
                                                      {"lot", &filter.lot},
                                                      {"station", &filter.station},
                                                      {"program", &filter.program},
                                                      {"serial", &filter.serial}};
    for (const auto& [key, value] : wanted) {
        const auto name = key.cast<std::string>();
        const auto text =
            std::ranges::find(texts, name, [](const auto& known) { return std::string(known.first); });
        if (value.is_none())
            continue;
        if (text != std::end(texts))
            *text->second = value.cast<QString>();
        else if (name == "since")
            filter.since = TimeOf(value);
        else if (name == "until")
            filter.until = TimeOf(value);
        else if (name == "across_lots")
            filter.acrossLots = value.cast<bool>();
        else
            throw py::type_error(
                "there is no filter '" + name +
                "'; choose of product, lot, station, program, serial, since, until, across_lots");
    }
    return filter;
}

} // namespace ZYN::Python
