/// The editor of the remap table: cells, files and boxes.
#include "sources/menus/segyremapdialog.h"

#include <QComboBox>
#include <QHeaderView>
#include <QLineEdit>
#include <QMessageBox>
#include <QPushButton>
#include <QTableWidget>
#include <QTemporaryDir>
#include <QtTest>

#include <memory>

class SegyRemapDialogTest : public QObject
{
    Q_OBJECT

private slots:
    void hasTwentyFiveRowsAndTheToldTexts();
    void whatIsTypedIsInTheSnapshot();
    void aHeaderWordIsChosenFromAList();
    void aFileFillsTheRowsAndClearsTheOthers();
    void aFileOfThirtyLinesFillsTwentyFiveRows();
    void savedRowsAreUpperCase();
    void aFileThatCannotBeReadLeavesTheTable();
    void aFileThatCannotBeWrittenIsTold();
    void dismissHidesItAndTheTableStays();
    void returnInACellOpensNoFileDialog();
    void aCellInEditIsQuietWhenTheDialogGoes();
    void anUnusableRowIsRedAndTellsWhy();
};

/// Accepts the next message box and keeps what it said.
static void acceptNextBox(QString* title, QString* text)
{
    QTimer::singleShot(0, [title, text] {
        auto* box = qobject_cast<QMessageBox*>(QApplication::activeModalWidget());
        if (!box) return;
        *title = box->windowTitle();
        *text = box->text();
        box->accept();
    });
}

static QTableWidget* tableOf(SegyRemapDialog* dialog)
{
    return dialog->findChild<QTableWidget*>("tableWidget");
}

void SegyRemapDialogTest::hasTwentyFiveRowsAndTheToldTexts()
{
    SegyRemapDialog dialog;
    QCOMPARE(dialog.windowTitle(), QString("Segy Remap Table"));
    QTableWidget* table = tableOf(&dialog);
    QVERIFY(table);
    QCOMPARE(table->rowCount(), 25);
    QCOMPARE(table->columnCount(), 4);
    const char* headings[] = {"Trevia\nHeader", "Format\n(1I,2I,4I,\n4R,8R,Axx)", "Type\n(IEEE,IBM)",
                              "Start Byte\n(1-240)"};
    for (int i = 0; i < 4; ++i) QCOMPARE(table->horizontalHeaderItem(i)->text(), QString(headings[i]));
    QCOMPARE(dialog.findChild<QPushButton*>("loadButton")->text(), QString("&Load From File"));
    QCOMPARE(dialog.findChild<QPushButton*>("saveButton")->text(), QString("&Save To File"));
    QCOMPARE(dialog.findChild<QPushButton*>("dismissButton")->text(), QString("&Dismiss"));
    QVERIFY(SegyRemapDialog::remapFolder().endsWith("/port/db/segy/"));
    QVERIFY(dialog.table().isEmpty());
}

void SegyRemapDialogTest::whatIsTypedIsInTheSnapshot()
{
    SegyRemapDialog dialog;
    QSignalSpy changed(&dialog, &SegyRemapDialog::tableChanged);
    dialog.show();
    QTableWidget* table = tableOf(&dialog);
    table->setCurrentCell(2, 0);
    QTest::keyClick(table, 'c');  // opens the editor, which gets the rest
    auto* editor = table->viewport()->findChild<QLineEdit*>();
    QVERIFY(editor);
    QTest::keyClicks(editor, "dp");
    QTest::keyClick(editor, Qt::Key_Return);
    QTRY_COMPARE(dialog.table().cells[2][0], QString("cdp"));
    QVERIFY(changed.count() >= 1);
}

void SegyRemapDialogTest::aHeaderWordIsChosenFromAList()
{
    SegyRemapDialog dialog;
    dialog.show();
    QTableWidget* table = tableOf(&dialog);
    table->setCurrentCell(0, 0);
    table->edit(table->currentIndex());
    auto* box = table->viewport()->findChild<QComboBox*>("headerWordBox");
    QVERIFY(box);
    // All 60 words of the header table, without the blanks that fill them up, with their descriptions.
    QCOMPARE(box->count(), 60);
    QCOMPARE(box->itemText(0), QString("CHAN"));
    const int row = box->findText("ILINE_NO");
    QCOMPARE(row, 48);
    QCOMPARE(box->itemData(row, Qt::ToolTipRole).toString(), QString("3D inline number"));
    box->setCurrentIndex(row);
    emit box->textActivated(box->currentText());
    QTRY_COMPARE(dialog.table().cells[0][0], QString("ILINE_NO"));
    QTRY_VERIFY(!table->viewport()->findChild<QComboBox*>("headerWordBox"));
    QVERIFY(dialog.isVisible());
    // The other columns are typed.
    table->setCurrentCell(0, 3);
    table->edit(table->currentIndex());
    QVERIFY(!table->viewport()->findChild<QComboBox*>("headerWordBox"));
}

void SegyRemapDialogTest::aFileFillsTheRowsAndClearsTheOthers()
{
    const QTemporaryDir folder;
    QFile file(folder.filePath("a"));
    QVERIFY(file.open(QIODevice::WriteOnly));
    file.write("SOU_SLOC,4I,IEEE,197\nCDP,4I");
    file.close();
    SegyRemapDialog dialog;
    SegyRemapTable before;
    before.cells[1][3] = "21";
    before.cells[9][0] = "FFID";
    dialog.setTable(before);
    QSignalSpy changed(&dialog, &SegyRemapDialog::tableChanged);
    QVERIFY(dialog.loadTable(file.fileName()));
    QCOMPARE(changed.count(), 1);
    QCOMPARE(tableOf(&dialog)->item(0, 3)->text(), QString("197"));
    QCOMPARE(tableOf(&dialog)->item(1, 3)->text(), QString());
    QCOMPARE(tableOf(&dialog)->item(9, 0)->text(), QString());
    QVERIFY(!QApplication::overrideCursor());
}

void SegyRemapDialogTest::aFileOfThirtyLinesFillsTwentyFiveRows()
{
    const QTemporaryDir folder;
    QFile file(folder.filePath("a"));
    QVERIFY(file.open(QIODevice::WriteOnly));
    for (int i = 1; i <= 30; ++i) file.write("CDP,4I,IEEE," + QByteArray::number(i) + "\n");
    file.close();
    SegyRemapDialog dialog;
    QVERIFY(dialog.loadTable(file.fileName()));
    QCOMPARE(tableOf(&dialog)->rowCount(), 25);
    QCOMPARE(tableOf(&dialog)->item(24, 3)->text(), QString("25"));
}

void SegyRemapDialogTest::savedRowsAreUpperCase()
{
    const QTemporaryDir folder;
    SegyRemapDialog dialog;
    SegyRemapTable table;
    table.cells[3] = {"sou_x", "4r", "ibm", "73"};
    dialog.setTable(table);
    QVERIFY(dialog.saveTable(folder.filePath("a")));
    QFile file(folder.filePath("a"));
    QVERIFY(file.open(QIODevice::ReadOnly));
    QCOMPARE(file.readAll(), QByteArray("SOU_X,4R,IBM,73\n"));
}

void SegyRemapDialogTest::aFileThatCannotBeReadLeavesTheTable()
{
    SegyRemapDialog dialog;
    SegyRemapTable table;
    table.cells[0][0] = "CDP";
    dialog.setTable(table);
    QString title, text;
    acceptNextBox(&title, &text);
    QVERIFY(!dialog.loadTable("/no/such/file"));
    QCOMPARE(title, QString("Remap Table"));
    QCOMPARE(text, QString("Cannot read file /no/such/file:\nNo such file or directory."));
    QVERIFY(dialog.table() == table);
}

void SegyRemapDialogTest::aFileThatCannotBeWrittenIsTold()
{
    SegyRemapDialog dialog;
    QString title, text;
    acceptNextBox(&title, &text);
    QVERIFY(!dialog.saveTable("/no/such/folder/file"));
    QCOMPARE(title, QString("Remap Table"));
    QCOMPARE(text, QString("Cannot write file /no/such/folder/file:\nNo such file or directory."));
}

void SegyRemapDialogTest::dismissHidesItAndTheTableStays()
{
    SegyRemapDialog dialog;
    SegyRemapTable table;
    table.cells[0][0] = "CDP";
    dialog.setTable(table);
    dialog.show();
    QTest::mouseClick(dialog.findChild<QPushButton*>("dismissButton"), Qt::LeftButton);
    QVERIFY(!dialog.isVisible());
    dialog.show();
    QVERIFY(dialog.table() == table);
}

void SegyRemapDialogTest::returnInACellOpensNoFileDialog()
{
    SegyRemapDialog dialog;
    for (const auto* button : dialog.findChildren<QPushButton*>()) QVERIFY(!button->autoDefault());
    for (const char* name : {"loadButton", "saveButton"}) QVERIFY(!dialog.findChild<QPushButton*>(name)->isDefault());
}

void SegyRemapDialogTest::aCellInEditIsQuietWhenTheDialogGoes()
{
    auto dialog = std::make_unique<SegyRemapDialog>();
    dialog->show();
    dialog->activateWindow();
    QVERIFY(QTest::qWaitForWindowActive(dialog.get()));
    int nChanges = 0;
    connect(dialog.get(), &SegyRemapDialog::tableChanged, [&nChanges] { ++nChanges; });
    auto* cells = dialog->findChild<QTableWidget*>();
    cells->setCurrentCell(0, 0);
    cells->edit(cells->currentIndex());
    auto* editor = cells->findChild<QLineEdit*>();
    QTRY_VERIFY(editor && editor->hasFocus());
    QTest::keyClicks(editor, "CDP");
    dialog.reset();
    QCOMPARE(nChanges, 0);
}

void SegyRemapDialogTest::anUnusableRowIsRedAndTellsWhy()
{
    SegyRemapDialog dialog;
    dialog.setTable(remapTableFromText("CDP,4I,IEEE,9\nFFID,4I,IEEE,241\n"));
    QTableWidget* table = tableOf(&dialog);
    const auto isRed = [table](int row) { return table->item(row, 0)->foreground().color() == QColor(Qt::red); };
    QVERIFY(!isRed(0));
    QVERIFY(isRed(1));
    QVERIFY(!isRed(2));
    QCOMPARE(table->item(1, 3)->toolTip(), QString("the start byte must be 1 to 240: skipped"));
    QSignalSpy changed(&dialog, &SegyRemapDialog::tableChanged);
    table->item(1, 3)->setText("9");
    QCOMPARE(changed.count(), 1);  // the colours are no change
    QVERIFY(!isRed(1));
    QVERIFY(table->item(1, 3)->toolTip().isEmpty());
    table->item(2, 0)->setText("CDP");
    QVERIFY(isRed(2));
}

QTEST_MAIN(SegyRemapDialogTest)
#include "segyremapdialogtest.moc"
