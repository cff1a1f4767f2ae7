#include "frame/runstate.h"

int RunState::resetDirection()
{
    _direction = !_contFlow ? 99 : _closeFlow ? 98 : 97;
    return _direction;
}

bool RunState::getMoreRecords()
{
    if (_inext > 0) --_inext;
    return _inext > 0;
}

void RunState::pressNext()
{
    ++_inext;
    _direction = 2;
}

void RunState::pressPrevious()
{
    _direction = 1;
}

void RunState::continueFlow()
{
    _contFlow = true;
    _closeFlow = true;
}

void RunState::processFlow(bool hide)
{
    _doHide = _doHide || hide;
    _direction = 2;
    _contFlow = true;
    _closeFlow = false;
}
