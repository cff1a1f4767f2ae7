/// F1 and "?" in every window of the program.
#ifndef HELPKEYS_H
#define HELPKEYS_H

#include <QObject>
#include <QString>

#include <functional>

class QWidget;

/// The page of the help that tells of a window, as it stands now; the contents for a window without a page.
QString helpPageOf(const QWidget* window);

/// Opens the help of the window in front when F1 is pressed there, and the sheet of keys for "?", unless a control
/// has a use for the key. It watches the main window and all that belong to it.
class HelpKeys : public QObject
{
    Q_OBJECT

public:
    /// @param show  opens a page, in a window that belongs to the given one
    HelpKeys(QWidget* mainWindow, std::function<void(QWidget* window, const QString& page)> show);

protected:
    bool eventFilter(QObject* object, QEvent* event) override;

private:
    bool isOurs(const QWidget* window) const;

    QWidget* _mainWindow;
    std::function<void(QWidget*, const QString&)> _show;
};

#endif
