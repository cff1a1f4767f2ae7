#include "tracedata/parmfield.h"

#include <charconv>

static double numberOf(const ParmValue& value)
{
    return std::visit([](auto v) { return double(v); }, value);
}

bool ParmRule::admits(const ParmValue& value) const
{
    const double number = numberOf(value);
    return least <= number && number <= most && (!isWhole || number == std::trunc(number));
}

static std::string textOf(const ParmValue& value)
{
    char text[32];
    const auto end = std::visit(
        [&](auto v) {
            using T = decltype(v);
            if constexpr (std::is_same_v<T, float>)
                return std::to_chars(text, text + sizeof text, v);
            else
                return std::to_chars(text, text + sizeof text, int(v));
        },
        value);
    return std::string(text, end.ptr);
}

std::string ParmRule::print(const ParmValue& value) const
{
    if (const bool* on = std::get_if<bool>(&value)) return *on ? "on" : "off";
    if (!choices.empty()) return choices.at(size_t(numberOf(value)));
    return textOf(value) + (*unit ? std::string(" ") + unit : std::string());
}

static std::string_view trimmed(std::string_view text)
{
    while (!text.empty() && text.front() == ' ') text.remove_prefix(1);
    while (!text.empty() && text.back() == ' ') text.remove_suffix(1);
    return text;
}

static bool readSwitch(std::string_view text, ParmValue* value)
{
    for (const char* on : {"on", "true", "1"})
        if (text == on) return *value = true, true;
    for (const char* off : {"off", "false", "0"})
        if (text == off) return *value = false, true;
    return false;
}

template <class Number>
static bool readNumber(std::string_view text, ParmValue* value)
{
    Number number = 0;
    const auto end = std::from_chars(text.data(), text.data() + text.size(), number);
    if (end.ec != std::errc() || end.ptr != text.data() + text.size()) return false;
    *value = number;
    return true;
}

bool ParmRule::read(std::string_view text, ParmValue* value) const
{
    text = trimmed(text);
    ParmValue taken = *value;
    if (std::holds_alternative<bool>(taken)) return readSwitch(text, value);
    for (size_t i = 0; i < choices.size(); ++i)
        if (text == choices[i]) return *value = int(i), true;
    const std::string_view unitText = unit;
    if (!unitText.empty() && text.size() > unitText.size() && text.substr(text.size() - unitText.size()) == unitText)
        text = trimmed(text.substr(0, text.size() - unitText.size()));
    const bool isRead =
        std::holds_alternative<float>(taken) ? readNumber<float>(text, &taken) : readNumber<int>(text, &taken);
    if (!isRead || !admits(taken)) return false;
    *value = taken;
    return true;
}
