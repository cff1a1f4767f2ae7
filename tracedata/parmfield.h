/// The table of a record's fields: what each is called, what it may be, and how it reads and prints.
#ifndef PARMFIELD_H
#define PARMFIELD_H

#include "tracedata/orvinconstants.h"

#include <cmath>
#include <string>
#include <string_view>
#include <variant>
#include <vector>

struct PlotParm;
struct parmmenu;

/// A value on its way from a field to text or a file and back; choices travel as numbers.
using ParmValue = std::variant<bool, int, float>;

/// What a field is kept for, besides the plot itself; or'ed together.
enum ParmUse : unsigned {
    InPreset = 1,   ///< a preset keeps it
    InOverlay = 2,  ///< a new overlay takes it from the data
    InSession = 4   ///< the next session takes it from this one
};

/// What of a field doesn't depend on its record.
struct ParmRule {
    const char* key = "";   ///< in settings and presets; unique in its table
    const char* unit = "";  ///< as it stands behind a printed number
    double least = 0.0, most = 1.0;
    unsigned uses = 0;                      ///< of ParmUse
    bool isWhole = false;                   ///< kept and read as a whole number
    std::vector<const char*> choices = {};  ///< names of the values from 0 on

    /// False for what isn't finite, lies outside the range, or has a fraction and may not.
    bool admits(const ParmValue& value) const;
    /// "500 ms", "on", or the name of a choice.
    std::string print(const ParmValue& value) const;
    /// Reads what print() gives, and a bare number, into a value of the same kind as *value. False with *value as it
    /// was where the text is something else or isn't admitted.
    bool read(std::string_view text, ParmValue* value) const;
};

/// One field of a record. Whoever keeps, copies, shows or tests the record walks a table of these, so that another
/// field is another row.
template <class Record>
struct ParmField {
    using Member = std::variant<bool Record::*, int Record::*, float Record::*, DisplayType Record::*,
                                PlotDirection Record::*, Normalize Record::*>;
    Member member;
    ParmRule rule;
    /// Takes the field from the record that a flow or the start fills, and keeps it there for displays that are still
    /// to come; null where that record has no such field.
    void (*fromMenu)(const parmmenu& menu, PlotParm* parm) = nullptr;
    void (*toMenu)(const PlotParm& parm, parmmenu* menu) = nullptr;

    ParmValue value(const Record& record) const
    {
        return std::visit([&](auto m) { return this->toValue(record.*m); }, member);
    }
    /// False, with the record as it was, for a value that isn't admitted.
    bool setValue(const ParmValue& value, Record* record) const
    {
        if (!rule.admits(value)) return false;
        std::visit([&](auto m) { assign(value, &(record->*m)); }, member);
        return true;
    }
    std::string print(const Record& record) const { return rule.print(value(record)); }
    /// As ParmRule::read, into the record.
    bool read(std::string_view text, Record* record) const
    {
        ParmValue taken = value(*record);
        return rule.read(text, &taken) && setValue(taken, record);
    }

private:
    template <class T>
    ParmValue toValue(T from) const
    {
        if constexpr (std::is_same_v<T, bool>)
            return from;
        else if constexpr (std::is_same_v<T, float>)
            return rule.isWhole ? ParmValue(int(std::lround(from))) : ParmValue(from);
        else
            return int(from);
    }
    template <class T>
    static void assign(const ParmValue& value, T* to)
    {
        *to = std::visit([](auto v) { return T(v); }, value);
    }
};

/// Copies the fields of a use.
template <class Record>
void copyParms(const std::vector<ParmField<Record>>& fields, unsigned use, const Record& from, Record* to)
{
    for (const ParmField<Record>& field : fields)
        if (field.rule.uses & use) std::visit([&](auto member) { to->*member = from.*member; }, field.member);
}

#endif
