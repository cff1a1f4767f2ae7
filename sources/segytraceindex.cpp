#include "sources/segytraceindex.h"

#include "sources/segyloader.h"

/// Entry of a map item that holds a value; see segyData2::itemList.
static MapSlot slotOf(TraceValue what)
{
    switch (what) {
    case TraceValue::Channel: return MapSlot(3);
    case TraceValue::Ffid: return MapSlot(8);
    case TraceValue::SourceLocation: return MapSlot(1);
    case TraceValue::ReceiverLocation: return MapSlot(5);
    case TraceValue::Cdp: return MapSlot(2);
    case TraceValue::Offset: return MapSlot(4);
    case TraceValue::Inline: return MapSlot(6);
    case TraceValue::Crossline: return MapSlot(7);
    case TraceValue::TraceNumber: return MapSlot(9);
    case TraceValue::CdpX: return MapSlot(10);
    case TraceValue::CdpY: return MapSlot(11);
    case TraceValue::SourceX: return MapSlot(12);
    case TraceValue::SourceY: return MapSlot(13);
    case TraceValue::ReceiverX: return MapSlot(14);
    case TraceValue::ReceiverY: return MapSlot(15);
    }
    return MapSlot();
}

int SegyTraceIndex::count() const
{
    return _loader->getTotalTraces();
}

void SegyTraceIndex::values(TraceValue what, float* out) const
{
    const MapSlot slot = slotOf(what);
    const segyMapItem* items = _loader->getMapArray();
    for (int i = 0; i < count(); ++i) out[i] = items[i].item[slot.value];
}

float SegyTraceIndex::value(TraceValue what, int i) const
{
    return _loader->getMapArray()[i].item[slotOf(what).value];
}

int SegyTraceIndex::place(int i) const
{
    return int(_loader->getMapArray()[i].itrace);
}

bool SegyTraceIndex::readTrace(int i, int* words, float* samples)
{
    return _loader->readMappedTrace(i, words, samples, false) > 0;
}
