/// The ways out of a main window onto paper and into files.
#ifndef WINDOWEXPORTS_H
#define WINDOWEXPORTS_H

#include <QPixmap>
#include <QString>

#include <functional>

class QMainWindow;
class ScreenRow;
class EnsembleSource;

/// Where the traces on the first screen come from, for the side label of a section.
struct SectionOrigin {
    QString file;                            ///< its name
    const EnsembleSource* source = nullptr;  ///< lent; null where none
};

/// Each asks for a name, writes, and tells in a box what went wrong.
class WindowExports
{
public:
    /// @param origin  asked at each export of a section
    /// Window and screens are lent and outlive this.
    WindowExports(QMainWindow* window, const ScreenRow* screens, std::function<SectionOrigin()> origin);

    /// Prints the last screen.
    void print() const;
    void exportPdf() const;
    /// The whole ensemble of the first screen, true to scale.
    void exportSection() const;
    void exportImage() const;
    /// The window with all that stands over it.
    void exportScreen() const;

private:
    QPixmap wholePicture() const;
    QString askName(const char* title, const char* file, const char* filter) const;
    QString askPictureName(const char* title) const;
    void tell(const char* title, const QString& error) const;

    QMainWindow* _window;
    const ScreenRow* _screens;
    std::function<SectionOrigin()> _origin;
};

#endif
