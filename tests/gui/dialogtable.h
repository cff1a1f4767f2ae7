/// All dialogs and windows of the program, for tests that hold for each of them.
#ifndef DIALOGTABLE_H
#define DIALOGTABLE_H

#include "display/menus/drawdialog.h"
#include "display/menus/imagedialog.h"
#include "display/menus/titles.h"
#include "frame/sectionexport.h"
#include "frame/sectionexportdialog.h"
#include "sources/menus/segyguessdialog.h"
#include "sources/menus/segymenudialog.h"
#include "sources/menus/segyrecdialog.h"
#include "sources/menus/segyremapdialog.h"
#include "sources/segyloader.h"
#include "tests/gui/segymenufixture.h"
#include "tests/gui/windowfixture.h"
#include "widgets/helpviewer.h"

#include <QDirIterator>
#include <QRegularExpression>
#include <QTabWidget>

#include <functional>
#include <map>

/// A main window on a small file with an index, and what it needs to live.
struct DialogHome {
    WindowFixture fixture;

    explicit DialogHome(const QString& folder) { fixture.open(writeSegy(folder + "/small.sgy"), 1, 1); }
    ~DialogHome() { delete made; }
    QPointer<QWidget> made;  // what has no window to belong to
};

/// Name of the class, and how one is made and filled.
inline const std::map<QString, std::function<QWidget*(DialogHome*)>>& dialogTable()
{
    static const std::map<QString, std::function<QWidget*(DialogHome*)>> table = {
        {"MainWindow", [](DialogHome* home) -> QWidget* { return home->fixture.window.get(); }},
        {"HelpViewer",
         [](DialogHome* home) -> QWidget* {
             return home->made = new HelpViewer(nullptr, MERIDUNE_SOURCE_DIR "/resources",
                                                "/docs/meridune-docs/index.html", QString());
         }},
        {"ParmMenuDialog",
         [](DialogHome* home) -> QWidget* {
             home->fixture.window->parameterMenu();
             return home->fixture.window->findChild<QDialog*>("ParmMenuDialog");
         }},
        {"ImageDialog",
         [](DialogHome* home) -> QWidget* {
             return home->made =
                        new ImageDialog(home->fixture.window->imageStorage(), home->fixture.window->displays());
         }},
        {"DrawDialog",
         [](DialogHome* home) -> QWidget* {
             home->fixture.window->drawMenu();
             return home->fixture.window->findChild<DrawDialog*>();
         }},
        {"Titles",
         [](DialogHome* home) -> QWidget* {
             home->fixture.window->titleMenu();
             return home->fixture.window->findChild<Titles*>();
         }},
        {"SegyMenuDialog",
         [](DialogHome* home) -> QWidget* {
             home->fixture.window->segyMenu();
             return home->fixture.window->findChild<SegyMenuDialog*>();
         }},
        {"SegyGuessDialog", [](DialogHome* home) -> QWidget* { return home->made = new SegyGuessDialog; }},
        {"SegyRecDialog",
         [](DialogHome* home) -> QWidget* {
             return home->made = new SegyRecDialog(home->fixture.window->segyLoader());
         }},
        {"SegyRemapDialog", [](DialogHome* home) -> QWidget* { return home->made = new SegyRemapDialog; }},
        {"SectionExportDialog",
         [](DialogHome* home) -> QWidget* {
             const auto layout = [home](const SectionScale& scale) {
                 return sectionPage(*home->fixture.window->display(), scale, 15);
             };
             return home->made = new SectionExportDialog({5.0, 10.0}, layout);
         }},
    };
    return table;
}

/// The classes of our headers that are dialogs or windows, by what they derive from.
inline QStringList dialogClasses()
{
    static const QRegularExpression declared(
        "class (\\w+)[^;{(]*:[^;{(]*public Q(?:Dialog|MainWindow|MessageBox|Wizard|ProgressDialog|FileDialog)\\b");
    QStringList names;
    for (const char* folder : {"frame", "analysis", "display", "sources", "tracedata", "widgets", "host"}) {
        QDirIterator headers(QString(MERIDUNE_SOURCE_DIR "/") + folder, {"*.h"}, QDir::Files,
                             QDirIterator::Subdirectories);
        while (headers.hasNext()) {
            QFile header(headers.next());
            if (!header.open(QIODevice::ReadOnly)) continue;
            const QString text = QString::fromUtf8(header.readAll());
            for (auto found = declared.globalMatch(text); found.hasNext();) names.append(found.next().captured(1));
        }
    }
    names.sort();
    return names;
}

/// Calls for each page of the window: for a dialog of tabs with each of them in front, else once.
inline void forEachPage(QWidget* window, const std::function<void()>& look)
{
    auto* tabs = qobject_cast<QDialog*>(window) ? window->findChild<QTabWidget*>() : nullptr;
    for (int i = 0; i < (tabs ? tabs->count() : 1); ++i) {
        if (tabs) tabs->setCurrentIndex(i);
        QApplication::processEvents();
        look();
    }
}

#endif
