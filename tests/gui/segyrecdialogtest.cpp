/// The dialog that seeks a record: ranges by sort, and what it gives back.
#include "sources/menus/segyrecdialog.h"
#include "tests/gui/segymenufixture.h"

#include <QComboBox>
#include <QDialogButtonBox>
#include <QLabel>
#include <QPushButton>
#include <QSpinBox>
#include <QTemporaryDir>

class SegyRecDialogTest : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();
    void hasTheToldTextsAndTheSortInForce();
    void anotherSortHasItsOwnRange();
    void aValueOutsideTheRangeIsNotTaken();
    void acceptGivesTheSortAndTheValue();
    void dismissedItChangesNothing();
    void aSortWithoutANameOffersTheValuesOfTheList();

private:
    std::unique_ptr<SegyLoader> open(int isort, const QByteArray& bytes = segyBytes());

    QTemporaryDir _folder;
    MenuHost::Quiet _report;
};

void SegyRecDialogTest::initTestCase()
{
    QVERIFY(_folder.isValid());
}

/// An indexed loader with its first ensemble read.
std::unique_ptr<SegyLoader> SegyRecDialogTest::open(int isort, const QByteArray& bytes)
{
    const QString file = writeSegy(_folder.path() + "/six.sgy", bytes);
    auto loader = SegyLoader::open({.files = file, .isort = isort, .indexbuilt = 1}, &_report);
    if (!loader) qFatal("no loader");
    loader->loadNextEnsemble(1);
    return loader;
}

static QString rangeOf(SegyRecDialog* dialog)
{
    return dialog->findChild<QLabel*>("minmaxLabel")->text();
}

void SegyRecDialogTest::hasTheToldTextsAndTheSortInForce()
{
    const auto loader = open(1);
    SegyRecDialog dialog(loader.get());
    QCOMPARE(dialog.windowTitle(), QString("Seek SEGY Record"));
    QStringList labels;
    for (QLabel* label : dialog.findChildren<QLabel*>()) labels += label->text();
    for (const char* text : {"Primary Key: ", "     Value: ", " Range: 10 - 12"}) QVERIFY2(labels.contains(text), text);
    auto* sorts = dialog.findChild<QComboBox*>("seekPriBox");
    QCOMPARE(sorts->count(), 11);
    QCOMPARE(sorts->currentText(), QString("FFID"));
    auto* spin = dialog.findChild<QSpinBox*>("seekSpin");
    QCOMPARE(spin->minimum(), 10);
    QCOMPARE(spin->maximum(), 12);
    QCOMPARE(spin->value(), 10);  // the record on screen
    QVERIFY(!sorts->toolTip().isEmpty() && !spin->toolTip().isEmpty());
}

void SegyRecDialogTest::anotherSortHasItsOwnRange()
{
    const auto loader = open(1);
    SegyRecDialog dialog(loader.get());
    auto* sorts = dialog.findChild<QComboBox*>("seekPriBox");
    auto* spin = dialog.findChild<QSpinBox*>("seekSpin");
    sorts->setCurrentText("CDP Gather");
    QCOMPARE(rangeOf(&dialog), QString(" Range: 101 - 106"));
    QCOMPARE(spin->minimum(), 101);
    QCOMPARE(spin->maximum(), 106);
    sorts->setCurrentText("FFID");
    QCOMPARE(rangeOf(&dialog), QString(" Range: 10 - 12"));
    QCOMPARE(dialog.getSortKey(), SortCode(1));
    QCOMPARE(loader->currentSortKey(), SortCode(1));
    QCOMPARE(loader->numEnsembles(), 3);
}

void SegyRecDialogTest::aValueOutsideTheRangeIsNotTaken()
{
    const auto loader = open(1);
    SegyRecDialog dialog(loader.get());
    dialog.show();
    auto* spin = dialog.findChild<QSpinBox*>("seekSpin");
    spin->selectAll();
    QTest::keyClicks(spin, "99");
    dialog.findChild<QDialogButtonBox*>("buttonBox")->button(QDialogButtonBox::Ok)->click();
    QVERIFY(dialog.prikey() >= 10 && dialog.prikey() <= 12);
}

void SegyRecDialogTest::acceptGivesTheSortAndTheValue()
{
    const auto loader = open(1);
    SegyRecDialog dialog(loader.get());
    dialog.show();
    dialog.findChild<QComboBox*>("seekPriBox")->setCurrentText("CDP Gather");
    auto* spin = dialog.findChild<QSpinBox*>("seekSpin");
    spin->setFocus();
    spin->selectAll();
    QTest::keyClicks(spin, "104");
    QTest::keyClick(spin, Qt::Key_Return);
    QCOMPARE(dialog.result(), int(QDialog::Accepted));
    QCOMPARE(dialog.prikey(), 104);
    QCOMPARE(dialog.getSortKey(), SortCode(4));
}

void SegyRecDialogTest::dismissedItChangesNothing()
{
    const auto loader = open(1);
    SegyRecDialog dialog(loader.get());
    dialog.show();
    dialog.findChild<QSpinBox*>("seekSpin")->setValue(12);
    QTest::keyClick(&dialog, Qt::Key_Escape);
    QCOMPARE(dialog.result(), int(QDialog::Rejected));
    QCOMPARE(dialog.prikey(), 10);
    QCOMPARE(loader->priCurValue(), 10);
}

void SegyRecDialogTest::aSortWithoutANameOffersTheValuesOfTheList()
{
    QByteArray bytes = segyBytes();
    put16(&bytes, 3228, 6);  // CDP with CHAN, which stands in no list
    const auto loader = open(0, bytes);
    QCOMPARE(loader->currentSortKey(), SortCode(0));
    SegyRecDialog dialog(loader.get());
    QCOMPARE(dialog.findChild<QComboBox*>("seekPriBox")->currentIndex(), -1);
    QCOMPARE(rangeOf(&dialog), QString(" Range: 101 - 106"));
    dialog.findChild<QSpinBox*>("seekSpin")->setValue(105);
    dialog.accept();
    QCOMPARE(dialog.getSortKey(), SortCode(0));
    QCOMPARE(dialog.prikey(), 105);
}

QTEST_MAIN(SegyRecDialogTest)
#include "segyrecdialogtest.moc"
