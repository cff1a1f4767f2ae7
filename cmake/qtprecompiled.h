/// Qt and Qwt, compiled once for all widget libraries and their tests.
#ifndef QTPRECOMPILED_H
#define QTPRECOMPILED_H

#include <QtWidgets>
#include <qwt_plot.h>
#include <qwt_plot_canvas.h>
#include <qwt_plot_picker.h>
#include <qwt_plot_rasteritem.h>
#include <qwt_scale_draw.h>
#include <qwt_scale_map.h>
#include <qwt_scale_widget.h>

#include <algorithm>
#include <cmath>
#include <functional>
#include <memory>
#include <string>
#include <vector>

#endif
