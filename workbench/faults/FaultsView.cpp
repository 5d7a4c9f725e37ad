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
    m_kind->addItem(QString());
    m_kind->addItems(CommandText::kinds());
    m_when->addItems({QString(), QString(), QString()});
    m_number->setRange(1, 1000000);
    m_number->setValue(2);
    m_answer->addItems(FaultPlan::answers());
    m_banner->setWordWrap(true);
    m_banner->setTextInteractionFlags(Qt::TextSelectableByMouse);
    m_banner->setStyleSheet(QStringLiteral("background: #b02020; color: white; padding: 6px"));

    for (QWidget* const field :
         std::initializer_list<QWidget*>{m_kind, m_parameter, m_when, m_number, m_answer, m_message}) {
        m_form->addRow(new QLabel, field);
    }
    auto* const layout = new QVBoxLayout(this);
    layout->addLayout(m_form);
    layout->addWidget(m_arm);
    layout->addWidget(m_banner);
    layout->addWidget(m_disarm);
    layout->addStretch(1);

    connect(m_when, qOverload<int>(&QComboBox::currentIndexChanged), this,
            [this](int index) { m_number->setEnabled(index == Nth); });
    m_number->setEnabled(false);
    connect(m_arm, &QPushButton::clicked, this, &FaultsView::arm);
    connect(m_disarm, &QPushButton::clicked, &injector, &FaultInjector::disarm);
    connect(&injector, &FaultInjector::planChanged, this, &FaultsView::showPlan);
    new LanguageChange(this, [this] { retranslate(); });
}

void FaultsView::retranslate()
{
    m_kind->setItemText(0, tr("any"));
    m_when->setItemText(Next, tr("the next one"));
    m_when->setItemText(Nth, tr("the n-th one"));
    m_when->setItemText(Every, tr("every one"));
    const QStringList labels = {tr("Command"), tr("Parameter"), tr("Strikes"),
                                tr("n"),       tr("Answer"),    tr("Message")};
    for (int row = 0; row < labels.size(); ++row) {
        qobject_cast<QLabel*>(m_form->itemAt(row, QFormLayout::LabelRole)->widget())->setText(labels[row]);
        m_form->itemAt(row, QFormLayout::FieldRole)->widget()->setAccessibleName(labels[row]);
    }
    m_parameter->setPlaceholderText(tr("any"));
    m_answer->setToolTip(tr("Delay: the command takes 2 s, then goes on."));
    m_arm->setText(tr("Arm"));
    m_disarm->setText(tr("Disarm all"));
    showPlan();
}

void FaultsView::arm()
{
    Fault fault;
    fault.kind = m_kind->currentIndex() > 0 ? m_kind->currentText() : QString();
    fault.parameter = m_parameter->text();
    fault.number = m_when->currentIndex() == Next    ? 1
                   : m_when->currentIndex() == Every ? 0
                                                     : m_number->value();
    fault.answer = static_cast<Fault::Answer>(m_answer->currentIndex());
    fault.message = m_message->text();
    m_injector.arm(fault);
}

void FaultsView::showPlan()
{
    QStringList lines(tr("Armed:"));
    const auto faults = m_injector.plan().faults();
    for (const Fault& fault : faults) {
        lines << fault.text();
    }
    m_banner->setText(lines.join(QLatin1Char('\n')));
    m_banner->setVisible(m_injector.plan().isArmed());
    m_disarm->setEnabled(m_injector.plan().isArmed());
}
