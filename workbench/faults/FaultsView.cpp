#include "faults/FaultsView.h"

#include "LanguageChange.h"
#include "commands/CommandText.h"
#include "faults/FaultInjector.h"

namespace {

enum When { Next, Nth, Every };

} // namespace

FaultsView::FaultsView(FaultInjector& injector, QWidget* parent)
    : QWidget(parent)
    , m_injector(injector)
{
    m_ui.setupUi(this);
    m_ui.kindBox->addItems(CommandText::kinds());
    m_ui.answerBox->addItems(FaultPlan::answers());
    connect(m_ui.whenBox, qOverload<int>(&QComboBox::currentIndexChanged), this,
            [this](int index) { m_ui.numberBox->setEnabled(index == Nth); });
    connect(m_ui.armButton, &QPushButton::clicked, this, &FaultsView::arm);
    connect(m_ui.disarmButton, &QPushButton::clicked, &injector, &FaultInjector::disarm);
    connect(&injector, &FaultInjector::planChanged, this, &FaultsView::showPlan);
    new LanguageChange(this, [this] {
        m_ui.retranslateUi(this);
        showPlan();
    });
}

void FaultsView::arm()
{
    const int when = m_ui.whenBox->currentIndex();
    Fault fault;
    fault.kind = m_ui.kindBox->currentIndex() > 0 ? m_ui.kindBox->currentText() : QString();
    fault.parameter = m_ui.parameterEdit->text();
    fault.number = when == Next ? 1 : when == Every ? 0 : m_ui.numberBox->value();
    fault.answer = static_cast<Fault::Answer>(m_ui.answerBox->currentIndex());
    fault.message = m_ui.messageEdit->text();
    m_injector.arm(fault);
}

void FaultsView::showPlan()
{
    QStringList lines(tr("Armed:"));
    const auto faults = m_injector.plan().faults();
    for (const Fault& fault : faults) {
        lines << fault.text();
    }
    m_ui.faultBanner->setText(lines.join(QLatin1Char('\n')));
    m_ui.faultBanner->setVisible(m_injector.plan().isArmed());
    m_ui.disarmButton->setEnabled(m_injector.plan().isArmed());
}
