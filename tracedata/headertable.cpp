#include "tracedata/headertable.h"

void HeaderTable::clear()
{
    *this = HeaderTable();
}

void HeaderTable::append(const QString& name, const QString& desc, int index, int format, int exists,
                         int length)
{
    _headerName.append(name);
    _headerDesc.append(desc);
    _headerIndex.append(index);
    _headerFormat.append(format);
    _headerExist.append(exists);
    _headerLength.append(length);
}

int HeaderTable::find(const QString& name) const
{
    return _headerName.indexOf(name);
}
