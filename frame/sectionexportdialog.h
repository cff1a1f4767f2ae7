/// Asks for the scale of a section on paper.
#ifndef SECTIONEXPORTDIALOG_H
#define SECTIONEXPORTDIALOG_H

#include "frame/sectionexport.h"

#include <QDialog>

#include <functional>

class NumberEdit;
class QDialogButtonBox;
class QLabel;

/// Shows each spacing in two units that follow each other, and the size of the page.
class SectionExportDialog : public QDialog
{
    Q_OBJECT

public:
    /// @param layout  the page of a scale; asked at every change
    SectionExportDialog(const SectionScale& scale, std::function<SectionPage(const SectionScale&)> layout,
                        QWidget* parent = nullptr);

    const SectionScale& scale() const { return _scale; }

private:
    void showScale();
    NumberEdit* makeEdit(const char* name, const QString& tip);

    SectionScale _scale;
    std::function<SectionPage(const SectionScale&)> _layout;
    NumberEdit* _tpcEdit;  // all are children of the dialog
    NumberEdit* _tpiEdit;
    NumberEdit* _cpsEdit;
    NumberEdit* _ipsEdit;
    QLabel* _sizeLabel;
    QDialogButtonBox* _buttons;
};

#endif
