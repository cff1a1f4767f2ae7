/// Controls of plot parameters.
#ifndef PARMCONTROLS_H
#define PARMCONTROLS_H

#include "tracedata/plotparm.h"

#include <QStringList>

#include <vector>

class NumberEdit;
class QWidget;

/// A number field with the range of a parameter, whole where that is.
NumberEdit* makeParmEdit(const char* key, const char* name, const QString& tip);
/// The names of a parameter's first n choices.
QStringList parmChoices(const char* key, int n);

/// Which control shows which parameter. Keeps no values: it shows those of the record that it is given.
class ParmControls
{
public:
    /// @param key      of a row of plotParmFields()
    /// @param control  a number field, a check box, a slider or a list of choices; lent
    void add(const char* key, QWidget* control);
    /// Shows the values. Controls may emit as they do when they are set; who mustn't hear that is the caller's to say.
    void show(const PlotParm& parm) const;

private:
    struct Row {
        const ParmField<PlotParm>* field;
        QWidget* control;
    };
    std::vector<Row> _rows;
};

#endif
