#include "HostApplication.h"
#include "LogCapture.h"
#include "PanelTour.h"

#include <random>

using namespace ZelCore;

namespace {

/// Works a panel at random, with a core that fails now and then. What is stored must be what is shown, but
/// for edits that are not finished and for what a fault kept from being stored.
class RandomUse : public PanelTour
{
public:
    explicit RandomUse(unsigned int seed)
        : m_random(seed)
    {
        answer = [this](const QString& command) { return faultOrNot(command); };
        // Whether the focus can leave the panel when it is hidden.
        find("ok")->setFocusPolicy(seed % 2 == 0 ? Qt::StrongFocus : Qt::NoFocus);
        core.binaryData["IFText"] = "%int0%:0:100:first;%float0%:0.500:2.250:;";
        for (int i = 1; i < 28 && seed % 20 == 5; ++i) {
            core.binaryData["IFText"] += "%float" + QByteArray::number(i) + "%:-0.500:1.000:;";
        }
        panel->hide();
    }
    void happen();
    /// Destroys the panel, whatever state it is in.
    void end();

    /// What went wrong and the steps that led to it; empty while all is well.
    QString failure;

private:
    int below(int limit) { return std::uniform_int_distribution<int>(0, limit - 1)(m_random); }
    QString oneOf(const QStringList& choices) { return choices[below(choices.size())]; }
    std::optional<CommandResult> faultOrNot(const QString& command);
    QString filled(QString action, int row);
    bool areSourcesShown() const;
    QStringList untouchedRows() const;
    QStringList storedRows() const;
    void verify(bool isRight, const QString& what);

    std::mt19937 m_random;
    QStringList m_steps;
    // Names of rows that were worked on since the last load.
    QStringList m_touched;
    // An edit may not be finished.
    bool m_isOpen = false;
    // A command of the present step failed or threw.
    bool m_isFaulty = false;
    // A fault, or a list that was stored otherwise, is why something else is shown.
    bool m_isListExcused = false;
    bool m_areSourcesExcused = false;
};

std::optional<CommandResult> RandomUse::faultOrNot(const QString& command)
{
    const QString save = "SetBinaryData 7 IFText=";
    verify(!command.startsWith(save) || command.mid(save.size()) == QString::fromUtf8(shown()),
           "something else is saved: " + command);
    const int kind = below(150);
    if (kind > 2) {
        return std::nullopt;
    }
    m_isFaulty = true;
    m_steps << "(a fault of " + command + ')';
    if (kind == 0) {
        keepItemTexts();
        throw ZelCommon::ZelException("gone");
    }
    return CommandResult(kind == 1 ? Failed : NothingChanged, "no");
}

void RandomUse::verify(bool isRight, const QString& what)
{
    if (!isRight && failure.isEmpty()) {
        failure = what.left(300) + "\nstored: " + QString::fromUtf8(stored()).left(300) +
                  "\nshown: " + QString::fromUtf8(shown()).left(300) + "\nafter:\n" +
                  QStringList(m_steps.mid(m_steps.size() - 12)).join('\n').left(2000);
    }
}

QStringList RandomUse::storedRows() const
{
    QStringList rows;
    for (const QString& entry : QString::fromUtf8(stored()).split(';')) {
        if (entry.count(':') >= 3) {
            rows << entry.section(':', 0, 3) + ';';
        }
    }
    return rows;
}

QStringList RandomUse::untouchedRows() const
{
    return shownRows().filter(QRegularExpression("^(?!%(" + m_touched.join('|') + ")%)"));
}

bool RandomUse::areSourcesShown() const
{
    bool areShown = isModeStored();
    const auto names = all<QWidget>("m_labName");
    for (int row = 0; row < names.size(); ++row) {
        const QString key = "@%" + names[row]->property("text").toString() + '%';
        const bool isLower = core.uiData[key + "Start"].startsWith("True");
        const bool isUpper = core.uiData[key + "End"].startsWith("True");
        areShown = areShown && at<QWidget>("m_spbMinPullBar", row)->isHidden() == isLower &&
                   at<QWidget>("m_spbMaxPullBar", row)->isHidden() == isUpper;
    }
    return areShown;
}

QString RandomUse::filled(QString action, int row)
{
    QString garbage;
    for (int length = below(12); length > 0; --length) {
        garbage += QString("0123456789.,-+e%:; x").at(below(20));
    }
    const QString note =
        oneOf({"", "a:b", "100%", "孔", ";%int7%:1:2:😀", "😀;", "&:;%int", "长" + QString(5000, 'x')});
    const QString number =
        oneOf({"0", "-1", "2.9", "1,5", " 5 ", "0.125", "99999", "-99999", garbage, garbage});
    const QString value = oneOf({"Count", "Mean", "Refused", "none such"});
    return action.replace("ROW", QString::number(row))
        .replace("NOTE", note)
        .replace("NUMBER", number)
        .replace("VALUE", value);
}

void RandomUse::happen()
{
    static const QStringList actions = linesOf("random.txt");
    static const QRegularExpression opening("^type|^key (m_spb|slider)");
    static const QRegularExpression finishing("^click (btn_add|m_btnDelete)|^key focus (Return|Tab)");
    static const QRegularExpression plainNumber("^type m_spb\\S+ ( *[-+]?\\d{1,5}([.,]\\d{0,3})?) *$");
    const bool wasVisible = panel->isVisible();
    const QStringList rows = shownRows();
    const int row = below(qMax(1, rows.size()));
    QString action = wasVisible ? oneOf(actions) : "show";
    if (action.contains(":ROW")) {
        m_touched << rows.value(row).section('%', 1, 1);
        // Several rows can have one name, and then share what is stored of their sources.
        m_areSourcesExcused |= rows.filter('%' + m_touched.last() + "%:").size() > 1;
    }
    if (action.startsWith("type focus") && host.isActiveWindow()) {
        return; // into menus only
    }
    action = filled(action, row);
    const QStringList before = untouchedRows();
    const auto sources = core.uiData;
    m_steps << action;
    m_isFaulty = false;
    const bool isDone = perform(action);

    const bool isSame = stored() == shown();
    const bool isOpening = opening.match(action).hasMatch();
    const bool isLoaded = !wasVisible && panel->isVisible();
    const bool isFinished =
        !panel->isVisible() || (isDone && finishing.match(action).hasMatch() && !find("slider"));
    m_areSourcesExcused = m_isFaulty || (m_areSourcesExcused && !isLoaded);
    verify(m_areSourcesExcused || areSourcesShown(), "another source or mode is shown");
    verify(sources == core.uiData || !action.endsWith("Return"), "Return changes a source");
    if (const auto typed = plainNumber.match(action); isDone && typed.hasMatch()) {
        verify(find(action.section(' ', 1, 1))->property("value").toDouble() ==
                   typed.captured(1).replace(',', '.').toDouble(),
               "another bound");
    }
    if (isLoaded) {
        verify(m_isFaulty || shownRows() == storedRows(), "not all that is stored is loaded");
        m_touched.clear();
    } else {
        verify(untouchedRows().mid(0, before.size()) == before, "another row is changed");
        verify(isSame || m_isFaulty || m_isListExcused || (m_isOpen && !isFinished) || isOpening,
               "not stored");
    }
    m_isListExcused = !isSame && (isLoaded || m_isListExcused || m_isFaulty);
    m_isOpen = !isFinished && (m_isOpen || isOpening);
}

void RandomUse::end()
{
    answer = [this](const QString& command) {
        failure = "a command after the end: " + command;
        return std::nullopt;
    };
    delete (below(2) == 0 ? container : panel.data());
    QApplication::processEvents();
    for (const QWidget* const left : QApplication::topLevelWidgets()) {
        if (left != &host && left != &window) {
            failure += QString("a window is left: ") + left->metaObject()->className();
        }
    }
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
    QTest::addColumn<int>("seed");
    const int runs =
        qEnvironmentVariableIsSet("RANDOM_RUNS") ? qEnvironmentVariableIntValue("RANDOM_RUNS") : 10;
    for (int seed = 1; seed <= runs; ++seed) {
        QTest::addRow("%d", seed) << seed;
    }
}

void tst_random_use::runs()
{
    QFETCH(int, seed);
    RandomUse use(static_cast<unsigned int>(seed));
    LogCapture log;
    for (int i = 0; i < 200 && use.failure.isEmpty(); ++i) {
        use.happen();
    }
    if (use.failure.isEmpty()) {
        use.end();
    }
    QVERIFY2(use.failure.isEmpty(), qPrintable(use.failure));
    QCOMPARE(log.warnings(), QStringList());
}

HOST_TEST_MAIN(tst_random_use)
#include "tst_random_use.moc"
