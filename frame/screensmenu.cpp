#include "frame/screensmenu.h"

#include "frame/screenrow.h"

#include <QActionGroup>
#include <QMenu>

#include <algorithm>

ScreensMenu::ScreensMenu(QMenu* view) : QObject(view)
{
    static_assert(std::size(decltype(_counts){}) == ScreenRow::most);
    auto* group = new QActionGroup(this);
    for (int n = 1; n <= ScreenRow::most; ++n) {
        QAction* action = view->addAction(n == 1 ? QString("&1 Screen") : QString("&%1 Screens").arg(n), this,
                                          [this, n] { emit countWanted(n); });
        action->setObjectName(QString("screens%1Act").arg(n));
        action->setStatusTip("Show so many ensembles side by side");
        action->setCheckable(true);
        group->addAction(action);
        _counts[n - 1] = action;
    }
    view->addSeparator();
    _difference = view->addAction("&Difference");
    _difference->setObjectName("differenceAct");
    _difference->setCheckable(true);
    _difference->setStatusTip("Show the difference of the last two screens beside them");
    connect(_difference, &QAction::toggled, this, &ScreensMenu::differenceWanted);
}

void ScreensMenu::show(int count, bool isDifferenceOn)
{
    _counts[std::clamp(count, 1, int(ScreenRow::most)) - 1]->setChecked(true);
    const bool isPossible = count > 1;
    _difference->setEnabled(isPossible);
    _difference->setToolTip(isPossible ? _difference->statusTip() : _difference->statusTip() + "\nNeeds two screens.");
    _difference->setChecked(isPossible && isDifferenceOn);
}
