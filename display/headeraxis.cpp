#include "display/headeraxis.h"

#include "host/flow/standardwords.h"
#include "tracedata/seismicdata.h"
#include "tracedata/seismicheader.h"

#include <iterator>
#include <new>

static char typeLetter(int format)
{
    switch (format) {
    case Float4Format: return 'F';
    case Double8Format: return 'D';
    case Integer4Format: return 'I';
    default: return 'S';
    }
}

static void nameColumn(KeyColumn* column, const HeaderWords& words, WordFrom0 key)
{
    const QString name = words.name(key);
    const bool isWord = !name.isEmpty() && words.exists(name);
    column->name = isWord ? name : QString("None");
    column->type = isWord ? typeLetter(words.format(name)) : 'I';
}

float keyOfTrace(const SeismicData& data, WordFrom0 key, char type, int i)
{
    const SeismicHeader* header = data.getTraceHeader(i);
    float value = 0.0f;
    if (type != 'I') {
        header->headerFloatValue(key.value, &value);
        return value;
    }
    int whole = 0;
    header->headerValue(key.value, &whole);
    return float(whole);
}

static void readColumn(KeyColumn* column, const SeismicData& data, WordFrom0 key, bool rightToLeft)
{
    const int n = data.traceCount();
    for (int i = 0; i < n; ++i)
        column->values[size_t(i) + 1] =
            column->name == "None" ? 0.0f : keyOfTrace(data, key, column->type, rightToLeft ? n - 1 - i : i);
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

/// Room for n values in each column; without memory all of them, which the axes look at, stay where they are.
bool HeaderAxis::makeRoom(size_t n, std::string* error)
{
    const struct {
        KeyColumn* column;
        const char* place;  // the first two stores share a number
    } columns[] = {{&_priReal, "0"}, {&_pri, "0"}, {&_sec, "1"}, {&_secReal, "2"}};
    std::vector<float> grown[std::size(columns)];
    for (size_t i = 0; i < std::size(columns); ++i) {
        if (columns[i].column->values.size() >= n) continue;
        try {
            grown[i].resize(n);
        } catch (const std::bad_alloc&) {
            *error = std::string("MERIDUNE: buildHeadersAxis, error while getting memory: ") + columns[i].place + ".";
            return false;
        }
    }
    for (size_t i = 0; i < std::size(columns); ++i)
        if (!grown[i].empty()) columns[i].column->values.swap(grown[i]);
    return true;
}

bool HeaderAxis::build(const SeismicData& data, const HeaderKeys& keys, bool rightToLeft, bool isDifference,
                       std::string* error)
{
    if (!makeRoom(size_t(data.traceCount()) + 2, error)) return false;
    const HeaderWords& words = data.getTraceHeader(0)->headerWords();
    nameColumn(&_priReal, words, keys.realHaveNames ? keys.priReal : keys.pri);
    nameColumn(&_pri, words, keys.pri);
    nameColumn(&_secReal, words, keys.realHaveNames ? keys.secReal : keys.sec);
    nameColumn(&_sec, words, keys.sec);
    readColumn(&_priReal, data, keys.priReal, rightToLeft);
    readColumn(&_pri, data, keys.pri, rightToLeft);
    readColumn(&_sec, data, keys.sec, rightToLeft);
    readColumn(&_secReal, data, keys.secReal, rightToLeft);
    _nTraces = data.traceCount();
    readParmTest(data, isDifference);
    return true;
}
