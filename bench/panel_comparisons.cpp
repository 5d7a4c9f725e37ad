#include "Comparison.h"
#include "EmbeddedCore/EmbeddedCore.h"
#include "MemoryCore.h"
#include "Painting.h"
#include "QIfModuleMainView.h"
#include "RowCopy.h"
#include "ZelCommon/ServiceRegistration.h"
#include "condition/ConditionRecord.h"
#include "ui_QIfModuleMainView.h"

#include <QLineEdit>
#include <QPushButton>
#include <QSqlDatabase>
#include <QSqlQuery>
#include <QTemporaryDir>
#include <QVBoxLayout>

#include <memory>

using ZelCore::ServiceRegistration;

namespace {

QByteArray textOf(int rows)
{
    QList<ConditionRecord> list;
    for (int i = 0; i < rows; ++i) {
        const QString number = QString::number(i / 2);
        list << (i % 2 == 0 ? ConditionRecord{"int" + number, 1.0 * i, 1000.0 + i, "count " + number}
                            : ConditionRecord{"float" + number, i + 0.125, i + 99.5, "size " + number});
    }
    return ConditionRecord::toText(list).toUtf8();
}

/// A host's window, high enough for every row, that measures what is done until it is painted.
struct Window : QWidget
{
    Window()
    {
        auto* const outer = new QVBoxLayout(this);
        outer->addWidget(area);
        new QVBoxLayout(area);
        resize(700, 2000);
    }
    double painted(const std::function<void()>& action) const
    {
        return timed([&] {
            Painting painting(*this);
            action();
            painting.wait();
        });
    }
    QWidget* const area = new QWidget(this);
};

/// The panel with its rows, on a core in memory.
struct Real
{
    explicit Real(int rows) { core.binaryData["IFText"] = textOf(rows); }
    double open()
    {
        return window.painted([this] {
            panel = new QIfModuleMainView(7, window.area);
            window.area->layout()->addWidget(panel);
            window.show();
        });
    }
    double showAgain()
    {
        return window.painted([this] { panel->show(); });
    }

    MemoryCore core;
    ServiceRegistration registration{core};
    Window window;
    QIfModuleMainView* panel = nullptr;
};

/// The form, sheets and rows of a panel with nothing behind them.
struct Bare
{
    explicit Bare(int count)
    {
        Real real(count);
        real.open();
        const auto widgets = real.panel->findChildren<QWidget*>();
        for (const QWidget* const widget : widgets) {
            sheets[widget->objectName()] = widget->styleSheet();
        }
        auto* const list = real.panel->findChild<QVBoxLayout*>(QStringLiteral("verL_infoList"));
        for (int i = 0; i < list->count(); ++i) {
            rows.emplace_back(*static_cast<QBoxLayout*>(list->itemAt(i)->layout()));
        }
    }
    double open()
    {
        return window.painted([this] {
            panel = new QWidget(window.area);
            form.setupUi(panel);
            panel->setStyleSheet(sheets.value(QStringLiteral("lab_help")));
            for (QWidget* const widget : panel->findChildren<QWidget*>()) {
                if (const QString sheet = sheets.value(widget->objectName()); !sheet.isEmpty()) {
                    widget->setStyleSheet(sheet);
                }
            }
            addRows();
            window.area->layout()->addWidget(panel);
            window.show();
        });
    }
    double showAgain()
    {
        return window.painted([this] {
            while (form.verL_infoList->count() != 0) {
                removeLast();
            }
            addRows();
            panel->show();
        });
    }
    void addRows()
    {
        for (const RowCopy& row : rows) {
            add(row);
        }
    }
    void add(const RowCopy& copy)
    {
        auto* const row = new QHBoxLayout;
        copy.build(row, panel);
        form.verL_infoList->addLayout(row);
    }
    void removeLast()
    {
        const std::unique_ptr<QLayoutItem> row(form.verL_infoList->takeAt(form.verL_infoList->count() - 1));
        while (const std::unique_ptr<QLayoutItem> item{row->layout()->takeAt(0)}) {
            delete item->widget();
        }
    }

    QHash<QString, QString> sheets;
    std::vector<RowCopy> rows;
    Window window;
    Ui_QIfModuleMainView form;
    QWidget* panel = nullptr;
};

template <typename Side>
double open(int rows)
{
    return Side(rows).open();
}

template <typename Side>
Round showAgain(int rows)
{
    const auto side = std::make_shared<Side>(rows);
    side->open();
    return [side] {
        side->panel->hide();
        QApplication::processEvents();
        return side->showAgain();
    };
}

Round addToBare(int rows)
{
    const auto side = std::make_shared<Bare>(rows);
    side->open();
    return [side] {
        const double seconds = side->window.painted([&side] { side->add(side->rows.back()); });
        side->removeLast();
        QApplication::processEvents();
        return seconds;
    };
}

Round addToReal(int rows)
{
    const auto side = std::make_shared<Real>(rows);
    side->open();
    return [side, last = QStringLiteral("int%1").arg((rows + 1) / 2)] {
        auto* const add = side->panel->findChild<QPushButton*>(QStringLiteral("btn_add"));
        const double seconds = side->window.painted([add] { add->click(); });
        side->panel->onBtnDeleteOpt(last);
        QApplication::processEvents();
        return seconds;
    };
}

double buildText(int rows)
{
    return timed([rows] { textOf(rows); });
}

Round finishEdit(int rows)
{
    const auto side = std::make_shared<Real>(rows);
    side->open();
    return [side] { return timed([&side] { side->panel->onLogicValueChanged2SetParam(); }); };
}

Round transaction(int rows)
{
    const auto folder = std::make_shared<QTemporaryDir>();
    auto database = QSqlDatabase::addDatabase(QStringLiteral("QSQLITE"), folder->path());
    database.setDatabaseName(folder->filePath(QStringLiteral("floor.sqlite")));
    database.open();
    for (const char* const statement : {"PRAGMA synchronous = EXTRA", "PRAGMA journal_mode = WAL",
                                        "CREATE TABLE p (name TEXT PRIMARY KEY, value BLOB) WITHOUT ROWID"}) {
        database.exec(QLatin1String(statement));
    }
    const auto query = std::make_shared<QSqlQuery>(database);
    query->prepare(QStringLiteral("INSERT OR REPLACE INTO p VALUES ('IFText', ?)"));
    return [folder, query, text = textOf(rows), number = 0]() mutable {
        query->bindValue(0, text + QByteArray::number(++number)); // the same bytes would not be written
        return timed([&query] { query->exec(); }, Clock::Wall);
    };
}

Round finishStoredEdit(int rows)
{
    const auto folder = std::make_shared<QTemporaryDir>();
    QString error;
    const auto flow = Flow::load(QStringLiteral(SAMPLE_FLOW), &error);
    const std::shared_ptr<EmbeddedCore> core =
        EmbeddedCore::open(*flow, folder->filePath(QStringLiteral("store.sqlite")), &error);
    const auto side = std::make_shared<Real>(rows);
    side->open();
    const auto registration = std::make_shared<ServiceRegistration>(*core);
    auto* const note = side->panel->findChild<QLineEdit*>(QStringLiteral("m_ediNote"));
    return [folder, core, side, registration, note, number = 0]() mutable {
        note->setText(QString::number(++number));
        return timed([&side] { side->panel->onLogicValueChanged2SetParam(); }, Clock::Wall);
    };
}

} // namespace

void addPanelComparisons()
{
    const auto each = [](auto measure, int rows) { // prepares anew for every round
        return [=] { return [=] { return measure(rows); }; };
    };
    const auto once = [](auto prepare, int rows) { return [=] { return prepare(rows); }; };
    for (const int rows : {1, 8, 31}) {
        const double bound = rows == 31 ? 1.0 : 0.0;
        const std::string count = '/' + std::to_string(rows);
        compare(
            {"open a panel" + count, bound * 1.15, each(open<Bare>, rows), each(open<Real>, rows), 20, true});
        compare({"show it again" + count, bound * 1.15, once(showAgain<Bare>, rows),
                 once(showAgain<Real>, rows), 20, true});
        compare({"add a row beside" + count, bound * 1.3, once(addToBare, rows), once(addToReal, rows), 40,
                 true});
        compare({"a finished edit" + count, bound * 1.5, each(buildText, rows), once(finishEdit, rows), 2000,
                 true});
        compare({"a stored edit" + count, bound * 1.2, once(transaction, rows), once(finishStoredEdit, rows),
                 300});
    }
}
