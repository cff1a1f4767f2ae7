#include "frame/windowsettings.h"

#include "widgets/appsettings.h"
#include "widgets/screenplace.h"

WindowSettings defaultWindowSettings(const QRect& screen)
{
    const int w = screen.width() > 2000 ? screen.width() / 2 : screen.width();
    const int h = screen.height();
    WindowSettings window;
    window.size = QSize(int(w * 0.9), int(h * 0.9));
    window.pos = QPoint((w - window.size.width()) / 4, (h - window.size.height()) / 4);
    return window;
}

WindowSettings readWindowSettings(QSettings* settings, const QRect& screen, bool reset)
{
    WindowSettings window = defaultWindowSettings(screen);
    if (!reset) {
        window.pos = settings->value(SettingsKey::pos, window.pos).toPoint();
        window.size = settings->value(SettingsKey::size, window.size).toSize();
    }
    window.state = settings->value(SettingsKey::state).toByteArray();
    window.colormap = settings->value(SettingsKey::colormap).toString();
    return window;
}

WindowSettings clampedSettings(const WindowSettings& settings, const QVector<QRect>& screens)
{
    const QSize frame(usualFrame.left() + usualFrame.right(), usualFrame.top() + usualFrame.bottom());
    const QRect place = clampedPlace(QRect(settings.pos, settings.size + frame), screens);
    WindowSettings clamped = settings;
    clamped.pos = place.topLeft();
    clamped.size = place.size() - frame;
    return clamped;
}

void writeWindowSettings(QSettings* settings, const WindowSettings& window)
{
    settings->setValue(SettingsKey::pos, window.pos);
    settings->setValue(SettingsKey::size, window.size);
    settings->setValue(SettingsKey::colormap, window.colormap);
    settings->setValue(SettingsKey::state, window.state);
}
