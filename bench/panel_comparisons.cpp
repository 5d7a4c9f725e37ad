#include "BarePanel.h"
#include "Comparison.h"
#include "EmbeddedCore/EmbeddedCore.h"
#include "MemoryCore.h"
#include "Painting.h"
#include "QIfModuleMainView.h"
#include "comparisons.h"

#include <QSqlDatabase>
#include <QSqlQuery>
#include <QTemporaryDir>
#include <QVBoxLayout>

#include <malloc.h>

#include <stdexcept>

namespace {

constexpr int mostRows = 32;
constexpr int usualHeight = 600;
constexpr int highestHeight = 2000; // shows every row

std::vector<BareValues> valuesOf(int rows)
{
    std::vector<BareValues> values;
    for (int i = 0; i < rows; ++i) {
        const QString number = QString::number(i / 2);
        if (i % 2 == 0) {
            values.push_back(
                {QStringLiteral("int") + number, 0.0 + i, 1000.0 + i, QStringLiteral("count ") + number});
        } else {
            values.push_back(
                {QStringLiteral("float") + number, i + 0.125, 99.5 + i, QStringLiteral("size ") + number});
        }
    }
    return values;
}

QString noteOf(bool isEdited)
{
    return isEdited ? QStringLiteral("edited") : QStringLiteral("before");
}

QString boundText(const BareValues& values, double bound)
{
    return values.isFloat() ? QString::number(bound, 'f', 3) : QString::number(static_cast<int>(bound));
}

QString textOf(const std::vector<BareValues>& rows)
{
    QString text;
    for (const BareValues& row : rows) {
        text += QLatin1Char('%') + row.name + QLatin1String("%:") + boundText(row, row.minimum) +
                QLatin1Char(':') + boundText(row, row.maximum) + QLatin1Char(':') + row.note +
                QLatin1Char(';');
    }
    return text;
}

/// A host's window with one of the two panels.
template <typename Panel>
struct Window : QWidget
{
    explicit Window(int height)
    {
        auto* const area = new QWidget;
        (new QVBoxLayout(this))->addWidget(area);
        new QVBoxLayout(area);
        resize(700, height);
    }
    Panel& add(Panel* panel)
    {
        findChild<QWidget*>()->layout()->addWidget(panel);
        return *panel;
    }
    QWidget* area() { return findChild<QWidget*>(); }
};

void showUntilPainted(QWidget& shown, const QWidget& window)
{
    Painting painting(window);
    shown.show();
    painting.wait();
}

struct Bare
{
    explicit Bare(int rows, int height = usualHeight)
        : values(valuesOf(rows))
        , window(height)
    {}
    void open()
    {
        panel = &window.add(new BarePanel(window.area()));
        fill();
        showUntilPainted(window, window);
    }
    void fill()
    {
        for (const BareValues& row : values) {
            panel->addRow(row);
        }
    }
    void showAgain()
    {
        panel->removeRows();
        fill();
        showUntilPainted(*panel, window);
    }

    std::vector<BareValues> values;
    Window<BarePanel> window;
    BarePanel* panel = nullptr;
};

struct Real
{
    explicit Real(int rows, int height = usualHeight)
        : window(height)
    {
        core.binaryData["IFText"] = textOf(valuesOf(rows)).toUtf8();
        registerService(core);
    }
    void open()
    {
        panel = &window.add(new QIfModuleMainView(7, window.area()));
        showUntilPainted(window, window);
        if (panel->findChildren<QLineEdit*>(QStringLiteral("m_ediNote")).size() !=
            textOf(valuesOf(mostRows)).left(core.binaryData["IFText"].size()).count(QLatin1Char(';'))) {
            throw std::logic_error("the panel does not show its rows");
        }
    }
    void showAgain() { showUntilPainted(*panel, window); }

    MemoryCore core;
    Window<QIfModuleMainView> window;
    QIfModuleMainView* panel = nullptr;
};

template <typename Side>
RoundMaker opening(int rows)
{
    return [rows] {
        return [rows] {
            Side side(rows);
            return timed([&side] { side.open(); });
        };
    };
}

template <typename Side>
RoundMaker showingAgain(int rows)
{
    return [rows] {
        const auto side = std::make_shared<Side>(rows);
        side->open();
        return [side] {
            side->panel->hide();
            QApplication::processEvents();
            return timed([&side] { side->showAgain(); });
        };
    };
}

std::size_t allocated()
{
    const auto info = ::mallinfo2();
    return info.uordblks + info.hblkhd;
}

template <typename Side>
RoundMaker memory(int rows)
{
    return [rows] {
        return [rows] {
            Side side(rows);
            const std::size_t before = allocated();
            side.open();
            return static_cast<double>(allocated() - before);
        };
    };
}

Round addToBare(int rows)
{
    const auto side = std::make_shared<Bare>(rows, highestHeight);
    side->open();
    return [side] {
        const double seconds = timed([&side] {
            Painting painting(side->window);
            side->panel->addRow({QStringLiteral("int99"), 1, 1000, QString()});
            painting.wait();
        });
        side->panel->removeLast();
        QApplication::processEvents();
        return seconds;
    };
}

Round addToReal(int rows)
{
    const auto side = std::make_shared<Real>(rows, highestHeight);
    side->open();
    const auto* const add = side->panel->findChild<QPushButton*>(QStringLiteral("btn_add"));
    return [side, add, last = QStringLiteral("int%1").arg((rows + 1) / 2)] {
        const double seconds = timed([&side, add] {
            Painting painting(side->window);
            const_cast<QPushButton*>(add)->click();
            painting.wait();
        });
        side->panel->onBtnDeleteOpt(last);
        QApplication::processEvents();
        return seconds;
    };
}

Round buildText(int rows)
{
    return [values = valuesOf(rows), text = QByteArray()]() mutable {
        return timed([&values, &text] { text = textOf(values).toUtf8(); });
    };
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
    for (const char* const statement : {"PRAGMA synchronous = FULL", "PRAGMA foreign_keys = ON",
                                        "CREATE TABLE p (module_id INTEGER, name TEXT, value BLOB NOT NULL, "
                                        "PRIMARY KEY (module_id, name)) WITHOUT ROWID"}) {
        database.exec(QLatin1String(statement));
    }
    const auto query = std::make_shared<QSqlQuery>(database);
    query->prepare(QStringLiteral("INSERT INTO p VALUES (7, 'IFText', ?) "
                                  "ON CONFLICT (module_id, name) DO UPDATE SET value = excluded.value"));
    return [folder, query, rows = valuesOf(rows), isEdited = false]() mutable {
        // The same bytes again would not be written.
        isEdited = !isEdited;
        rows[0].note = noteOf(isEdited);
        query->bindValue(0, textOf(rows).toUtf8());
        const auto commit = [&query] {
            if (!query->exec()) {
                throw std::logic_error("the floor's transaction failed");
            }
        };
        return timed(commit, Clock::Wall);
    };
}

Round finishStoredEdit(int rows)
{
    const auto folder = std::make_shared<QTemporaryDir>();
    QString error;
    auto flow = Flow::load(QStringLiteral(SAMPLE_FLOW), &error);
    const std::shared_ptr<EmbeddedCore> core =
        EmbeddedCore::open(*flow, folder->filePath(QStringLiteral("store.sqlite")), &error);
    const auto side = std::make_shared<Real>(rows);
    side->open();
    auto* const note = side->panel->findChild<QLineEdit*>(QStringLiteral("m_ediNote"));
    return [folder, core, side, note, isEdited = false]() mutable {
        isEdited = !isEdited;
        note->setText(noteOf(isEdited));
        registerService(*core);
        const double seconds = timed([&side] { side->panel->onLogicValueChanged2SetParam(); }, Clock::Wall);
        registerService(side->core);
        return seconds;
    };
}

} // namespace

void addPanelComparisons()
{
    for (const int rows : {1, 8, mostRows}) {
        const double bound = rows == mostRows ? 1.0 : 0.0;
        const std::string count = '/' + std::to_string(rows);
        compare({"open a panel" + count, bound * 1.15, opening<Bare>(rows), opening<Real>(rows), 20,
                 Unit::Time, true});
        compare({"show it again" + count, bound * 1.15, showingAgain<Bare>(rows), showingAgain<Real>(rows),
                 20, Unit::Time, true});
        const int before = rows - 1;
        compare({"add a row" + count, bound * 1.3, [before] { return addToBare(before); },
                 [before] { return addToReal(before); }, 40, Unit::Time, true});
        compare({"a finished edit" + count, bound * 1.5, [rows] { return buildText(rows); },
                 [rows] { return finishEdit(rows); }, 2000, Unit::Time, true});
        compare({"a stored edit" + count, bound * 1.2, [rows] { return transaction(rows); },
                 [rows] { return finishStoredEdit(rows); }, 300});
        compare({"memory of a panel" + count, bound * 1.1, memory<Bare>(rows), memory<Real>(rows), 5,
                 Unit::Memory});
    }
}
