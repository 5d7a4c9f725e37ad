#include "PanelTour.h"

/// No text is cut off and nothing is covered, whatever the host's language, fonts and scale are. Run once for
/// each scale factor, which a process can't change.
class tst_appearance : public QObject
{
    Q_OBJECT

private slots:
    void nothingIsClipped();
};

void tst_appearance::nothingIsClipped()
{
    const std::pair<const char*, const char*> hosts[] = {
        {"de_DE", "DejaVu Sans"}, {"ar_EG", "DejaVu Sans"}, {"zh_CN", "WenQuanYi Micro Hei"}};
    for (const auto& [locale, font] : hosts) {
        QLocale::setDefault(QLocale(locale));
        QApplication::setLayoutDirection(QLocale().textDirection());
        QApplication::setFont(QFont(font));

        // The longest names, and bounds of all lengths; what is longer than these is elided.
        PanelTour tour;
        QString list;
        for (int digits = 1; digits < 8; ++digits) {
            const QString number(digits, '8');
            list += QString("%int%1%:-%2:%2:;").arg(22 + digits).arg(number);
            list +=
                digits < 6 ? QString("%float%1%:-%2.888:%2.888:;").arg(22 + digits).arg(number) : QString();
        }
        tour.show(list.toUtf8());
        QCOMPARE(tour.shown(), list.toUtf8());

        for (const auto* const label : tour.panel->findChildren<QLabel*>()) {
            QVERIFY2(label->isHidden() || label->width() >= label->sizeHint().width(),
                     qPrintable(label->text()));
        }
        for (const auto* const edit : tour.all<QLineEdit>("qt_spinbox_lineedit")) {
            // What QLineEdit leaves for a text.
            const int room =
                edit->contentsRect().width() - edit->textMargins().left() - edit->textMargins().right() - 4;
            QVERIFY2(edit->fontMetrics().horizontalAdvance(edit->text()) <= room, qPrintable(edit->text()));
        }
        for (const auto* const combo : tour.panel->findChildren<QComboBox*>()) {
            const int width = combo->fontMetrics().horizontalAdvance(combo->currentText());
            QVERIFY2(width <= combo->width() - 20, qPrintable(combo->currentText()));
        }
        QRegion covered;
        for (const char* const name : {"m_labName", "m_ediNote", "m_spbMinPullBar", "m_btnMinSwitch",
                                       "m_spbMaxPullBar", "m_btnMaxSwitch", "m_btnDelete"}) {
            for (const QWidget* const widget : tour.all(name)) {
                const QRect place(widget->mapTo(tour.find("widget_2"), QPoint()), widget->size());
                QVERIFY2(tour.find("widget_2")->rect().contains(place) && !covered.intersects(place), name);
                covered += place;
            }
        }
    }
}

QTEST_MAIN(tst_appearance)
#include "tst_appearance.moc"
