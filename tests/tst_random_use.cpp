#include "ConditionModel.h"
#include "HostApplication.h"
#include "LogCapture.h"
#include "PanelTour.h"

#include <QLabel>

#include <random>

using namespace ZelCore;

namespace {

constexpr int eventsPerRun = 200;

/// Works a panel at random, with a core that fails now and then, beside a model of what must be stored.
class RandomUse
{
public:
    explicit RandomUse(unsigned int seed);

    void happen();
    /// Ends in a reload from a core without faults.
    void end();

    /// What went wrong, with the events before it; empty while all is well.
    QString failure() const;

private:
    int below(int limit) { return std::uniform_int_distribution<int>(0, limit - 1)(m_random); }
    template <typename T>
    T oneOf(std::initializer_list<T> choices)
    {
        return choices.begin()[below(static_cast<int>(choices.size()))];
    }

    void restoreSources(int row);
    void add();
    void remove(int row);
    void note(int row);
    void bound(int row, bool isLower);
    void hostileBound(int row, bool isLower);
    void slider(int row);
    void switchBound(int row, bool isLower);
    void bindBound(int row, bool isLower);
    void bindInput(int row);
    void mode();
    void reload();

    std::optional<CommandResult> answer(const QString& line);
    /// Whether a command of the present event failed or threw.
    bool hasFailed(const QString& beginning, bool byException = false) const;
    void began(const QString& event);
    void verify(bool isRight, const QString& what);
    void verifyShown();
    /// What is shown must have been stored, unless the core refused.
    void verifySaved();

    static ConditionModel::Bound& boundOf(ConditionModel::Row& row, bool isLower)
    {
        return isLower ? row.lower : row.upper;
    }
    QDoubleSpinBox* spinBox(int row, bool isLower) const;
    int stripOf(int row) const;
    QString key(int row, bool isLower) const;

    std::mt19937 m_random;
    PanelTour m_tour;
    ConditionModel m_model;
    ConditionModel m_before;
    int m_mode = 0;
    // Whether the event before left a note that is not saved yet.
    bool m_isUnfinished = false;
    int m_commandsToFault = 0;
    QStringList m_failed;
    QStringList m_thrown;
    QStringList m_events;
    QString m_failure;
};

RandomUse::RandomUse(unsigned int seed)
    : m_random(seed)
{
    m_tour.answer = [this](int, const QString& line) { return answer(line); };
    if (seed % 20 == 0) {
        // Next to the limit.
        for (int i = 0; i < 30; ++i) {
            m_model.add(QStringLiteral("int"));
        }
        m_tour.core.binaryData["IFText"] = m_model.text();
        m_model.load(m_model.text());
    }
    m_tour.window.show();
    m_tour.setVisible(true);
}

std::optional<CommandResult> RandomUse::answer(const QString& line)
{
    const QString save = "SetBinaryData 7 IFText=";
    if (line.startsWith(save)) {
        // The line is the text up to its first NUL, of which there is none.
        const QString text = line.mid(save.size());
        verify(text == QString::fromUtf8(m_model.text()) || text == QString::fromUtf8(m_before.text()),
               "a save of " + text);
    }
    if (m_commandsToFault == 0 || --m_commandsToFault > 0) {
        return std::nullopt;
    }
    const int kind = below(3);
    if (kind == 2) {
        m_thrown << line;
        throw ZelCommon::ZelException("gone");
    }
    m_failed << line;
    return CommandResult(kind == 0 ? Failed : NothingChanged, "no");
}

bool RandomUse::hasFailed(const QString& beginning, bool byException) const
{
    const QRegularExpression pattern('^' + beginning);
    return !m_thrown.filter(pattern).isEmpty() || (!byException && !m_failed.filter(pattern).isEmpty());
}

void RandomUse::began(const QString& event)
{
    m_isUnfinished = !m_events.isEmpty() && m_events.last().endsWith("unfinished");
    m_events << event;
    m_failed.clear();
    m_thrown.clear();
    m_before = m_model;
}

void RandomUse::verify(bool isRight, const QString& what)
{
    if (!isRight && m_failure.isEmpty()) {
        const auto shortened = [](const QByteArray& list) { return QString::fromUtf8(list).left(200); };
        m_failure = what.left(200) + "\nfaults: " + (m_failed + m_thrown).join(", ") +
                    "\nmust be: " + shortened(m_model.text()) + "\nis stored: " + shortened(m_tour.stored()) +
                    "\nis shown: " + shortened(m_tour.shown()) +
                    "\nlast events: " + m_events.mid(m_events.size() - 8).join(", ");
    }
}

QString RandomUse::failure() const
{
    return m_failure;
}

QDoubleSpinBox* RandomUse::spinBox(int row, bool isLower) const
{
    return m_tour.at<QDoubleSpinBox>(isLower ? "m_spbMinPullBar" : "m_spbMaxPullBar", stripOf(row));
}

// Rows whose names tell no type have no strip.
int RandomUse::stripOf(int row) const
{
    return static_cast<int>(std::count_if(m_model.rows.cbegin(), m_model.rows.cbegin() + row,
                                          [](const auto& other) { return other.hasStrip(); }));
}

QString RandomUse::key(int row, bool isLower) const
{
    return '%' + m_model.rows[row].name + (isLower ? "%Start" : "%End");
}

void RandomUse::verifyShown()
{
    QStringList names;
    for (const QLabel* const label : m_tour.all<QLabel>("m_labName")) {
        names << label->text();
    }
    verify(names == m_model.names(), "rows are " + names.join(' '));
    for (int i = 0; i < m_model.rows.size() && m_failure.isEmpty(); ++i) {
        ConditionModel::Row& row = m_model.rows[i];
        verify(m_tour.at<QLineEdit>("m_ediNote", i)->text() == row.note, "note of " + row.name);
        for (const bool isLower : {true, false}) {
            if (row.hasStrip()) {
                const auto& bound = boundOf(row, isLower);
                verify(spinBox(i, isLower)->text() == QString::number(bound.value, 'f', 3),
                       "bound of " + row.name + " is " + spinBox(i, isLower)->text());
                verify(spinBox(i, isLower)->isHidden() == bound.isSubscribed, "source of " + row.name);
            }
        }
    }
    verify(m_tour.shownMode().toInt() == m_mode + 1, "mode is " + m_tour.shownMode());
}

void RandomUse::verifySaved()
{
    verify(hasFailed("SetBinaryData") || m_tour.stored() == m_model.text(), "not saved");
}

// A row shows the sources that the core holds under its name.
void RandomUse::restoreSources(int row)
{
    for (const bool isLower : {true, false}) {
        const QString source = '@' + key(row, isLower);
        boundOf(m_model.rows[row], isLower).isSubscribed =
            m_model.rows[row].hasStrip() &&
            m_tour.core.uiData.value(source).startsWith(QByteArray("True", 5)) &&
            !m_failed.contains("QueryUIData 7 " + source);
    }
}

void RandomUse::add()
{
    const QString type = oneOf({"int", "float"});
    began("add " + type);
    const bool isFull = m_model.rows.size() >= 32;
    if (!isFull) {
        m_model.add(type);
    }
    m_tour.at<QComboBox>("cbox_typeSelect")->setCurrentText(type);
    m_tour.click(m_tour.at<QPushButton>("btn_add"));
    if (hasFailed("(QueryUIData|GetFilterSource)", true)) {
        m_model = m_before;
    } else if (!isFull) {
        // Beside names that hostile notes made, any other is as good.
        m_model.rows.last().name = m_tour.all<QLabel>("m_labName").last()->text();
        restoreSources(m_model.rows.size() - 1);
        verify(hasFailed("AddIO") || hasFailed("SetBinaryData") || m_tour.stored() == m_model.text(),
               "not saved");
        static const QRegularExpression regular("^(int|float)(0|[1-9][0-9]*)$");
        const QStringList names = m_before.names();
        if (names.filter(regular).size() == names.size()) {
            ConditionModel expected = m_before;
            expected.add(type);
            verify(m_model.names() == expected.names(), "named " + m_model.names().join(' '));
        }
    }
}

void RandomUse::remove(int row)
{
    const QString name = m_model.rows[row].name;
    began("delete " + name);
    m_model.remove(name);
    m_tour.click(m_tour.at<QPushButton>("m_btnDelete", row));
    if (hasFailed("Del", true)) {
        m_model = m_before; // the row stands; what of its bindings is left does not matter
    } else {
        verifySaved();
        if (m_failed.isEmpty()) {
            const QString left = (m_tour.core.bindings.keys() + m_tour.core.uiData.keys()).join(' ');
            verify(m_tour.core.bindings.value("0/%" + name + "%Start").isEmpty() &&
                       !m_tour.core.uiData.contains("@%" + name + "%End"),
                   "leaves " + left);
        }
    }
}

void RandomUse::note(int row)
{
    QString text;
    const int parts = below(6);
    for (int i = 0; i < parts; ++i) {
        text += oneOf({"孔", "😀", ";", ":", "%", "int", "hole", " ", "12.5", "<b>", "&"});
    }
    if (below(20) == 0) {
        text += "长" + QString(oneOf({100, 5000}), 'x');
    }
    began("note '" + text.left(40) + '\'');
    auto* const field = m_tour.at<QLineEdit>("m_ediNote", row);
    m_model.rows[row].note = text;
    // Only Return also finishes an edit that changed nothing.
    const bool isChanged = field->text() != text;
    m_tour.type(field, text);
    switch (below(4)) {
    case 0:
        m_events.last() += isChanged ? " unfinished" : "";
        return;
    case 1:
        m_tour.key(field, Qt::Key_Tab);
        if (!isChanged) {
            return;
        }
        break;
    default:
        m_tour.key(field, Qt::Key_Return);
    }
    verifySaved();
}

void RandomUse::bound(int row, bool isLower)
{
    QDoubleSpinBox* const box = spinBox(row, isLower);
    const double limit = box->maximum();
    const double value =
        oneOf({0.0, 1.0, -1.0, 2.9, -2.9, 0.125, 99.999, 1000.0, limit, -limit, below(2000) / 8.0});
    began(QString("bound %1 %2").arg(m_model.rows[row].name).arg(value));
    boundOf(m_model.rows[row], isLower).value = value;
    m_model.finishBounds(m_model.rows[row]);
    m_tour.type(box, QString::number(value, 'f', 3));
    m_tour.key(box, oneOf({Qt::Key_Return, Qt::Key_Tab}));
    verifySaved();
}

void RandomUse::hostileBound(int row, bool isLower)
{
    QString text;
    const int length = below(12);
    for (int i = 0; i < length; ++i) {
        text += QChar(QString("0123456789.,-+e%:; x").at(below(20)));
    }
    began("hostile bound " + text);
    // Whatever number the field makes of it: the saves that follow are held against what it shows then.
    QDoubleSpinBox* const box = spinBox(row, isLower);
    const ConditionModel allowed = m_model;
    m_tour.type(box, text);
    boundOf(m_model.rows[row], isLower).value = box->value();
    m_model.finishBounds(m_model.rows[row]);
    m_tour.key(box, Qt::Key_Return);
    verify(box->value() >= box->minimum() && box->value() <= box->maximum(), "bound out of range");
    verifySaved();
}

void RandomUse::slider(int row)
{
    began("slider");
    m_tour.click(spinBox(row, true)->findChild<QLineEdit*>());
    m_tour.click(m_tour.panel);
    verifySaved();
}

void RandomUse::switchBound(int row, bool isLower)
{
    began("switch " + key(row, isLower));
    auto& bound = boundOf(m_model.rows[row], isLower);
    bound.isSubscribed = !bound.isSubscribed;
    m_tour.click(m_tour.at<QPushButton>(isLower ? "m_btnMinSwitch" : "m_btnMaxSwitch", stripOf(row)));
    verify(hasFailed("SetUIData") || hasFailed("DelFilterSource", true) ||
               m_tour.core.uiData.value('@' + key(row, isLower)) ==
                   (bound.isSubscribed ? QByteArray("True", 5) : QByteArray("False", 6)),
           "source not stored");
}

void RandomUse::bindBound(int row, bool isLower)
{
    began("bind " + key(row, isLower));
    const QString source =
        oneOf({QString("5.Count"), QString("5.Mean"), PanelTour::refusedSource, QString()});
    const QString former = m_tour.core.bindings.value("0/" + key(row, isLower));
    m_tour.choose(m_tour.at<ButtonSelecterView>(isLower ? "m_bsvMinNumSubscribe" : "m_bsvMaxNumSubscribe",
                                                stripOf(row)),
                  source);
    const bool isRefused = source == PanelTour::refusedSource || hasFailed("(SetFilterSource|Query)");
    verify(m_tour.core.bindings.value("0/" + key(row, isLower)) == (isRefused ? former : source) ||
               hasFailed("Query"),
           "bound to another value " + m_tour.core.bindings.value("0/" + key(row, isLower)) + " not " +
               source + " former " + former);
}

void RandomUse::bindInput(int row)
{
    began("bind input");
    const QString source = oneOf({QString("5.Count"), QString("5.Mean"), PanelTour::refusedSource});
    const QString target = "1/%" + m_model.rows[row].name + '%';
    const QString former = m_tour.core.bindings.value(target);
    m_tour.choose(m_tour.inputs().value(row), source);
    const bool isRefused = source == PanelTour::refusedSource || hasFailed("SetFilterSource");
    verify(m_tour.core.bindings.value(target) == (isRefused ? former : source) || hasFailed("Query"),
           "bound to another value " + m_tour.core.bindings.value(target) + " not " + source + " former " +
               former);
}

void RandomUse::mode()
{
    began("mode");
    m_mode = 1 - m_mode;
    m_tour.key(m_tour.at<QComboBox>("cbox_determineType"), m_mode == 1 ? Qt::Key_Down : Qt::Key_Up);
    verify(hasFailed("SetRunParam") || m_tour.storedMode() == m_tour.shownMode(), "mode not stored");
}

void RandomUse::reload()
{
    began("hide and show");
    m_tour.setVisible(false);
    if (m_isUnfinished) {
        verifySaved();
    }
    ConditionModel loaded;
    loaded.load(m_tour.stored());
    const ConditionModel former = m_model;
    m_before = m_model = loaded;
    m_tour.setVisible(true);
    if (hasFailed("QueryBinaryData")) {
        m_model = former;
        return;
    }
    if (hasFailed("(QueryUIData|GetFilterSource)", true)) {
        // The load ended at this row; what is shown is what further saves store.
        m_model.rows.resize(qMin(m_model.rows.size(), m_tour.all<QLabel>("m_labName").size()));
    }
    for (int row = 0; row < m_model.rows.size(); ++row) {
        restoreSources(row);
    }
    if (!hasFailed("QueryRunParam") && m_thrown.filter(QRegularExpression("^(QueryUI|GetF)")).isEmpty()) {
        m_mode = m_tour.storedMode() == "1" ? 0 : 1;
    }
}

void RandomUse::happen()
{
    if (m_commandsToFault == 0 && below(8) == 0) {
        m_commandsToFault = 1 + below(12);
    }
    const int rows = m_model.rows.size();
    const int row = rows == 0 ? -1 : below(rows);
    const bool isLower = below(2) == 0;
    const bool hasStrip = row >= 0 && m_model.rows[row].hasStrip();
    const bool isConstant = hasStrip && !boundOf(m_model.rows[row], isLower).isSubscribed;
    const int event = below(100);
    if (event < (rows < 4 ? 30 : 7) || row < 0) {
        add();
    } else if (event < 37) {
        note(row);
    } else if (event < 55 && isConstant) {
        bound(row, isLower);
    } else if (event < 62 && isConstant) {
        hostileBound(row, isLower);
    } else if (event < 66 && hasStrip && !m_model.rows[row].lower.isSubscribed) {
        slider(row);
    } else if (event < 72 && hasStrip) {
        switchBound(row, isLower);
    } else if (event < 77 && hasStrip && !isConstant) {
        bindBound(row, isLower);
    } else if (event < 80) {
        bindInput(row);
    } else if (event < 83) {
        mode();
    } else if (event < 95) {
        remove(row);
    } else {
        reload();
    }
    verifyShown();
}

void RandomUse::end()
{
    m_commandsToFault = 0;
    add();
    began("edit");
    m_model.rows.first().note = "last";
    m_mode = 1 - m_mode;
    m_tour.edit();
    verifySaved();
    reload();
    verifyShown();
}

} // namespace

class tst_random_use : public QObject
{
    Q_OBJECT

private slots:
    void runs_data();
    void runs();
};

// One seed again: tst_random_use runs:SEED
void tst_random_use::runs_data()
{
    QTest::addColumn<unsigned int>("seed");
    const auto setting = [](const char* name, int standard) {
        return qEnvironmentVariableIsSet(name) ? qEnvironmentVariableIntValue(name) : standard;
    };
    const int first = setting("RANDOM_FIRST", 1);
    for (int seed = first; seed < first + setting("RANDOM_RUNS", 200); ++seed) {
        QTest::addRow("%d", seed) << static_cast<unsigned int>(seed);
    }
}

void tst_random_use::runs()
{
    QFETCH(unsigned int, seed);
    RandomUse use(seed);
    LogCapture log;
    for (int i = 0; i < eventsPerRun && use.failure().isEmpty(); ++i) {
        use.happen();
    }
    use.end();
    QVERIFY2(use.failure().isEmpty(), qPrintable(use.failure()));
    QCOMPARE(log.warnings(), QStringList());
}

HOST_TEST_MAIN(tst_random_use)
#include "tst_random_use.moc"
