#include "display/menus/parmcontrols.h"

#include "widgets/namedcontrol.h"
#include "widgets/numberedit.h"

#include <QCheckBox>
#include <QComboBox>
#include <QSlider>

NumberEdit* makeParmEdit(const char* key, const char* name, const QString& tip)
{
    const ParmRule& rule = plotParmField(key).rule;
    auto* edit = makeControl<NumberEdit>(name, tip, rule.least, rule.most);
    edit->setWhole(rule.isWhole);
    return edit;
}

QStringList parmChoices(const char* key, int n)
{
    const auto& choices = plotParmField(key).rule.choices;
    QStringList names;
    for (int i = 0; i < n; ++i) names.append(choices.at(size_t(i)));
    return names;
}

void ParmControls::add(const char* key, QWidget* control)
{
    _rows.push_back({&plotParmField(key), control});
}

static void showNumber(double number, QWidget* control)
{
    if (auto* edit = qobject_cast<NumberEdit*>(control))
        edit->setNumber(number);
    else if (auto* box = qobject_cast<QCheckBox*>(control))
        box->setChecked(number != 0.0);
    else if (auto* list = qobject_cast<QComboBox*>(control))
        list->setCurrentIndex(int(number));
    else if (auto* slider = qobject_cast<QSlider*>(control))
        slider->setValue(int(number));
}

void ParmControls::show(const PlotParm& parm) const
{
    for (const Row& row : _rows)
        showNumber(std::visit([](auto value) { return double(value); }, row.field->value(parm)), row.control);
}
