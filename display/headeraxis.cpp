#include "display/headeraxis.h"

#include "host/flow/standardwords.h"
#include "sources/segyheader.h"
#include "tracedata/headertable.h"
#include "tracedata/seismicdata.h"
#include "tracedata/seismicheader.h"

#include <cstring>
#include <new>

/// Type letter of a word in the host's lists.
static char hostType(int format)
{
    switch (format) {
    case Float4Format: return 'F';
    case Double8Format: return 'D';
    case Integer4Format: return 'I';
    default: return 'S';
    }
}

/// Type letter of a word of the SEG-Y mapping.
static char segyType(int format)
{
    switch (format) {
    case Integer2Format: return 'S';
    case Integer4Format: return 'I';
    case Float4Format: return 'F';
    default: return 'D';
    }
}

static void setColumn(KeyColumn* column, const QString& name, char type)
{
    column->name = name.isEmpty() ? QString("None") : name;
    column->type = name.isEmpty() ? 'I' : type;
}

static void nameFromHost(KeyColumn* column, SeismicHeader* header, int key)
{
    QString name;
    header->headerIndexNameS(key, name);
    if (!header->headerExists(name)) name.clear();
    setColumn(column, name, hostType(header->headerFormat(name)));
}

static void readColumn(KeyColumn* column, const SeismicData& data, int key, bool rightToLeft)
{
    const int n = data.traceCount();
    if (column->values.size() < size_t(n) + 2) column->values.resize(size_t(n) + 2);
    for (int i = 0; i < n; ++i) {
        float value = 0.0f;
        if (column->name != "None") {
            const SeismicHeader* header = data.getTraceHeader(rightToLeft ? n - 1 - i : i);
            int whole = 0;
            if (column->type == 'I') {
                header->headerValue(key, &whole);
                value = float(whole);
            } else {
                header->headerFloatValue(key, &value);
            }
        }
        column->values[size_t(i) + 1] = value;
    }
}

void HeaderAxis::readParmTest(const SeismicData& data, bool isDifference)
{
    SeismicHeader* first = data.getTraceHeader(0);
    _parmTest.clear();
    _panelVelocity = 0.0f;
    if (isDifference) {
        _parmTest = "Difference";
    } else if (first->headerExists("parmtest")) {
        std::vector<char> text(size_t(first->headerLength("parmtest")) * 4 + 1, '\0');
        first->headerStringValue(first->headerIndex("parmtest"), text.data(), int(text.size()) - 1);
        _parmTest = QString::fromLatin1(text.data());
    }
    if (!first->headerExists("panl_vel")) return;
    const int index = first->headerIndex("panl_vel");
    int whole = 0;
    if (first->headerFormat("panl_vel") == Float4Format) {
        first->headerFloatValue(index, &_panelVelocity);
    } else {
        first->headerValue(index, &whole);
        _panelVelocity = float(whole);
    }
}

int HeaderAxis::build(const SeismicData& data, const HeaderKeys& keys, bool isTrevia, bool rightToLeft,
                      bool isDifference, const HeaderTable* table, std::string* error)
{
    SeismicHeader* first = data.getTraceHeader(0);
    if (isTrevia) {
        nameFromHost(&_priReal, first, keys.priReal);
        nameFromHost(&_pri, first, keys.pri);
        nameFromHost(&_secReal, first, keys.secReal);
        nameFromHost(&_sec, first, keys.sec);
    } else {
        SegyHeader header(first->headers(), data.numHeaderWords(), table);
        header.setTreviaVersion(1);
        for (KeyColumn* column : {&_pri, &_priReal})
            setColumn(column, header.OrvinHeaderIndexName(keys.pri), segyType(header.OrvinHeaderFormat(keys.pri)));
        for (KeyColumn* column : {&_sec, &_secReal})
            setColumn(column, header.OrvinHeaderIndexName(keys.sec), segyType(header.OrvinHeaderFormat(keys.sec)));
    }
    const struct {
        KeyColumn* column;
        int key;
        const char* place;  // the first two stores share a number
    } columns[] = {
        {&_priReal, keys.priReal, "0"}, {&_pri, keys.pri, "0"}, {&_sec, keys.sec, "1"}, {&_secReal, keys.secReal, "2"}};
    for (const auto& c : columns) {
        try {
            readColumn(c.column, data, c.key, rightToLeft);
        } catch (const std::bad_alloc&) {
            *error = std::string("MERIDUNE: buildHeadersAxis, error while getting memory: ") + c.place + ".";
            return 0;
        }
    }
    _nTraces = data.traceCount();
    readParmTest(data, isDifference);
    return 1;
}
