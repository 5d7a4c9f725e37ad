#include "PanelTour.h"

#include <QDir>
#include <QLabel>
#include <QLocale>

namespace {

// Of a text in a field, what QLineEdit leaves for it.
int roomOf(const QLineEdit& field)
{
    return field.contentsRect().width() - field.textMargins().left() - field.textMargins().right() - 4;
}

int widthOf(const QWidget& widget, const QString& text)
{
    return widget.fontMetrics().horizontalAdvance(text);
}

} // namespace

/// Nothing is cut off or covered, whatever the host's language, fonts and scale are. Run once for each scale
/// factor, which a process can't change.
class tst_appearance : public QObject
{
    Q_OBJECT

private slots:
    void nothingIsClipped_data();
    void nothingIsClipped();
};

void tst_appearance::nothingIsClipped_data()
{
    QTest::addColumn<QString>("locale");
    QTest::addColumn<QString>("font");
    for (const char* const locale : {"C", "de_DE", "ar_EG", "zh_CN"}) {
        for (const char* const font : {"DejaVu Sans", "WenQuanYi Micro Hei"}) {
            QTest::addRow("%s, %s", locale, font) << locale << font;
        }
    }
}

void tst_appearance::nothingIsClipped()
{
    QFETCH(QString, locale);
    QFETCH(QString, font);
    const auto restore = qScopeGuard([standard = QApplication::font()] {
        QLocale::setDefault(QLocale::c());
        QApplication::setFont(standard);
        QApplication::setLayoutDirection(Qt::LeftToRight);
    });
    QLocale::setDefault(QLocale(locale));
    QApplication::setLayoutDirection(QLocale().textDirection());
    QApplication::setFont(QFont(font));

    PanelTour tour;
    tour.core.uiData["@%int1%End"] = "True";
    tour.core.bindings["0/%int1%End"] = "5.Mean";
    tour.core.bindings["1/%int1%"] = "5.Count";
    const QByteArray list =
        "%int0%:-99999:12345678:;%float31%:-100000.000:100000.000:孔径;%int1%:0:1000:note;";
    tour.show(list);
    QTRY_VERIFY(tour.at<QLineEdit>("m_ediNote")->isVisible());
    QCOMPARE(tour.shown(), list);

    for (const QLabel* const label : tour.panel->findChildren<QLabel*>()) {
        QVERIFY2(label->isHidden() || label->width() >= label->sizeHint().width(), qPrintable(label->text()));
    }
    for (const char* const box : {"m_spbMinPullBar", "m_spbMaxPullBar"}) {
        for (const auto* const spinBox : tour.all<QDoubleSpinBox>(box)) {
            const auto* const field = spinBox->findChild<QLineEdit*>();
            QVERIFY2(spinBox->isHidden() || roomOf(*field) >= widthOf(*field, field->text()),
                     qPrintable(QString("%1: %2 of %3")
                                    .arg(field->text())
                                    .arg(widthOf(*field, field->text()))
                                    .arg(roomOf(*field))));
        }
    }
    for (const auto* const combo : tour.panel->findChildren<QComboBox*>()) {
        QVERIFY(combo->width() >= widthOf(*combo, combo->currentText()) + 20);
    }

    // In a row no widget covers another, and none leaves the list.
    QVector<QWidget*> widgets;
    for (const char* const name :
         {"m_labName", "m_ediNote", "m_spbMinPullBar", "m_btnMinSwitch", "m_btnMaxSwitch", "m_btnDelete"}) {
        widgets << tour.all<QWidget>(name).toVector();
    }
    const auto placeOf = [&tour](const QWidget* widget) {
        return QRect(widget->mapTo(tour.panel, QPoint()), widget->size());
    };
    for (int i = 0; i < widgets.size(); ++i) {
        QVERIFY2(tour.panel->rect().contains(placeOf(widgets[i])), qPrintable(widgets[i]->objectName()));
        for (int j = 0; j < i; ++j) {
            QVERIFY2(!placeOf(widgets[i]).intersects(placeOf(widgets[j])),
                     qPrintable(widgets[i]->objectName()));
        }
    }
    if (const QString folder = qEnvironmentVariable("PICTURES"); !folder.isEmpty()) {
        const QString file = QString("%1/%2-%3-%4.png")
                                 .arg(folder, locale, font.section(' ', 0, 0))
                                 .arg(qApp->devicePixelRatio());
        QVERIFY(tour.window.grab().save(file));
    }
}

QTEST_MAIN(tst_appearance)
#include "tst_appearance.moc"
