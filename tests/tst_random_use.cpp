#include "HostApplication.h"
#include "LogCapture.h"
#include "PanelTour.h"

#include <random>

using namespace ZelCore;

namespace {

/// Works a panel at random, with a core that fails now and then. What is saved must be what is shown, and in
/// a hidden panel all that is shown must be stored, but for what a fault kept from being stored.
class RandomUse : public PanelTour
{
public:
    explicit RandomUse(unsigned int seed)
        : m_random(seed)
    {
        core.fault = [this](const QString& command) { return faultOrNot(command); };
        // Whether the focus can leave the panel when it is hidden.
        find("ok")->setFocusPolicy(seed % 2 == 0 ? Qt::StrongFocus : Qt::NoFocus);
        core.parameters["IFText"] = "%int0%:0:100:first;%float0%:0.500:2.250:;";
    }

    void act()
    {
        static const QStringList actions = linesOf("random.txt");
        const bool wasVisible = panel->isVisible();
        const QString action = wasVisible ? oneOf(actions) : "show";
        if (action.startsWith("type focus") && host.isActiveWindow()) {
            return; // texts are typed into menus only
        }
        m_steps << filled(action);
        m_isFaulty = false;
        perform(m_steps.last());

        const bool isLoaded = !wasVisible && panel->isVisible();
        const bool isSame = stored() == shown();
        m_isListExcused = !isSame && (isLoaded || m_isListExcused || m_isFaulty);
        verify(!isLoaded || m_isFaulty || shownRows() == storedRows(), "not all that is stored is loaded");
        verify(panel->isVisible() || isSame || m_isListExcused, "an edit is not stored");
    }

    /// What went wrong and the steps that led to it; empty while all is well.
    QString failure;

private:
    int below(int limit) { return std::uniform_int_distribution<int>(0, limit - 1)(m_random); }
    QString oneOf(const QStringList& choices) { return choices[below(choices.size())]; }

    std::optional<CommandResult> faultOrNot(const QString& command)
    {
        const QString save = "SetBinaryData 7 IFText=";
        verify(!command.startsWith(save) || command.mid(save.size()) == QString::fromUtf8(shown()),
               "something else is saved: " + command);
        verify(!command.startsWith("SetUIData") || !m_steps.last().endsWith("Return"), "Return is a click");
        const int kind = below(150);
        if (kind > 2) {
            return std::nullopt;
        }
        m_isFaulty = true;
        m_steps << "(a fault of " + command + ')';
        if (kind == 0) {
            throw ZelCommon::ZelException("gone");
        }
        return CommandResult(kind == 1 ? Failed : NothingChanged, "no");
    }

    QString filled(QString action)
    {
        const std::pair<QString, QStringList> choices[] = {
            {"ROW", {QString::number(below(qMax(1, shownRows().size())))}},
            {"NOTE", {"", "a:b", "100%", "孔", ";%int7%:1:2:😀", "😀;", "&:;%int", "长" + QString(5000, 'x')}},
            {"NUMBER", {"0", "-1", "2.9", "1,5", " 5 ", "0.125", "99999", "-99999", "1e3", "5.,", "%:; x"}},
            {"VALUE", {"Count", "Mean", "Refused", "none such"}}};
        for (const auto& [word, texts] : choices) {
            action.replace(word, oneOf(texts));
        }
        return action;
    }

    QStringList storedRows() const
    {
        static const QRegularExpression firstFour("^((?:[^:]*:){3}[^:]*).*");
        return QString::fromUtf8(stored()).split(';').filter(firstFour).replaceInStrings(firstFour, "\\1;");
    }

    void verify(bool isRight, const QString& what)
    {
        if (!isRight && failure.isEmpty()) {
            failure = what.left(300) + "\nstored: " + stored().left(300) + "\nshown: " + shown().left(300) +
                      "\nafter:\n" + QStringList(m_steps.mid(m_steps.size() - 12)).join('\n').left(2000);
        }
    }

    std::mt19937 m_random;
    QStringList m_steps;
    // A command of the present step failed or threw.
    bool m_isFaulty = false;
    // A fault, or a list that was stored otherwise, is why something else is shown.
    bool m_isListExcused = false;
};

} // namespace

class tst_random_use : public QObject
{
    Q_OBJECT

private slots:
    // One seed again: tst_random_use runs:SEED
    void runs_data()
    {
        QTest::addColumn<int>("seed");
        for (int seed = 1; seed <= qEnvironmentVariable("RANDOM_RUNS", "10").toInt(); ++seed) {
            QTest::addRow("%d", seed) << seed;
        }
    }
    void runs()
    {
        QFETCH(int, seed);
        RandomUse use(static_cast<unsigned int>(seed));
        LogCapture log;
        for (int i = 0; i < 200 && use.failure.isEmpty(); ++i) {
            use.act();
        }
        QVERIFY2(use.failure.isEmpty(), qPrintable(use.failure));
        QCOMPARE(log.warnings(), QStringList());
    }
};

HOST_TEST_MAIN(tst_random_use)
#include "tst_random_use.moc"
