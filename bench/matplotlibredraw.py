#!/usr/bin/env python3
"""Redraws of the raster bench's sections by matplotlib: the median of five, a line "NAME seconds" each.

Everything that moves the figures is pinned here: the Agg backend, a figure of 19 by 10 inches at 100 dots per
inch, axes over all of it, the colour map "seismic", lines of half a point.
"""
import statistics
import sys
import time

try:
    import matplotlib
    matplotlib.use('Agg')
    import matplotlib.pyplot as pyplot
    import numpy
except ImportError as missing:
    print(f'{missing}', file=sys.stderr)
    sys.exit(77)


def section(traces, samples):
    """Smooth traces, each scaled by twice its mean amplitude."""
    noise = numpy.random.default_rng(5).standard_normal((traces, samples)).astype(numpy.float32)
    for j in range(1, samples):
        noise[:, j] += numpy.float32(0.8) * noise[:, j - 1]
    return noise / (2.0 * numpy.abs(noise).mean(axis=1, keepdims=True))


def empty_figure():
    figure = pyplot.figure(figsize=(19, 10), dpi=100)
    return figure, figure.add_axes([0.0, 0.0, 1.0, 1.0])


def redraw_seconds(figure):
    times = []
    for _ in range(6):  # the first fills caches and doesn't count
        begin = time.perf_counter()
        figure.canvas.draw()
        times.append(time.perf_counter() - begin)
    pyplot.close(figure)
    return statistics.median(times[1:])


def image(values, interpolation):
    figure, axes = empty_figure()
    axes.imshow(values.T, cmap='seismic', vmin=-1.5, vmax=1.5, aspect='auto', interpolation=interpolation)
    return redraw_seconds(figure)


def wiggles(values):
    figure, axes = empty_figure()
    times = numpy.arange(values.shape[1]) * 2.0
    for i, trace in enumerate(values):
        axes.plot(trace + i, times, color='black', linewidth=0.5)
        axes.fill_betweenx(times, i, trace + i, where=trace > 0.0, color='black', linewidth=0.0)
    axes.set_xlim(-1, len(values))
    axes.set_ylim(times[-1], 0.0)
    return redraw_seconds(figure)


large = section(2000, 2000)
print(f'bilinear {image(large, "bilinear"):.6f}')
print(f'nearest {image(large, "nearest"):.6f}')
print(f'wiggles {wiggles(section(500, 1500)):.6f}')
