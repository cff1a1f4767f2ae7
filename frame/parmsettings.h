/// A record's fields in the settings.
#ifndef PARMSETTINGS_H
#define PARMSETTINGS_H

#include "tracedata/parmfield.h"

#include <QSettings>

/// Writes the fields of a use under their keys, as the kinds that they are.
template <class Record>
void writeParms(const std::vector<ParmField<Record>>& fields, unsigned use, const Record& record, QSettings* settings)
{
    for (const ParmField<Record>& field : fields)
        if (field.rule.uses & use)
            std::visit([&](auto value) { settings->setValue(field.rule.key, value); }, field.value(record));
}

/// Reads those that are stored. One that can't be read, or isn't admitted, leaves the old value; then false.
template <class Record>
bool readParms(const std::vector<ParmField<Record>>& fields, unsigned use, QSettings* settings, Record* record)
{
    bool isSound = true;
    for (const ParmField<Record>& field : fields) {
        if (!(field.rule.uses & use) || !settings->contains(field.rule.key)) continue;
        const std::string text = settings->value(field.rule.key).toString().toStdString();
        if (!field.read(text, record)) isSound = false;
    }
    return isSound;
}

#endif
