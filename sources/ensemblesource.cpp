#include "sources/ensemblesource.h"

#include <utility>

void EnsembleSource::setTraceIndex(std::unique_ptr<TraceIndex> index)
{
    std::swap(_traceIndex, index);  // the former one goes when nobody asks it any more
    emit traceIndexChanged();
}
