#include "AppDelegate.h"

#include "BkgndColorView.h"
#include "QApplication+QVExtras.h"
#include "QObject+QVExtras.h"
#include "Updater.h"
#include "UserDefaults.h"
#include "cxf_import.h"
#include "preferences.h"

#include <QAction>
#include <QApplication>
#include <QLabel>
#include <QLineEdit>
#include <QLoggingCategory>
#include <QMainWindow>
#include <QMenu>
#include <QMessageBox>
#include <QPalette>

#include <cmath>

Q_LOGGING_CATEGORY(lcImport, "cxf.import", QtInfoMsg)

namespace {

const QColor kMatchGreen = QColor::fromRgbF(0.0f, 0.8f, 0.0f);
const QColor kMismatchRed = QColor::fromRgbF(0.8f, 0.0f, 0.0f);
const QColor kHighlightPink = QColor::fromRgbF(1.0f, 0.7f, 0.7f);

// The platform's text background, for fields that carry no verdict.
QColor neutralBackground()
{
    return QApplication::palette().color(QPalette::Base);
}

void setBackground(QLineEdit *field, const QColor &color)
{
    if (!field)
        return;
    QPalette palette = field->palette();
    palette.setColor(QPalette::Base, color);
    // Dark text on the light verdict colours, whatever the theme.
    palette.setColor(QPalette::Text, color == neutralBackground()
                                         ? QApplication::palette().color(QPalette::Text)
                                         : QColor(Qt::black));
    field->setPalette(palette);
}

void setValue(QLineEdit *field, float value)
{
    if (field)
        field->setText(QString::number(double(value), 'f', AppDelegate::kResultDecimals));
}

// Which way the sample differs, as the field's tooltip and in the caption under it.
void setDirection(QLineEdit *field, QLabel *caption, float value, const QString &more,
                  const QString &less, const QString &same)
{
    const QString text = value > 0 ? more : value < 0 ? less : same;
    if (field)
        field->setToolTip(text);
    if (caption)
        caption->setText(text);
}

const QString kToleranceKeyPath = QLatin1String(kToleranceKey);

} // namespace

void AppDelegate::initialize()
{
    static bool initialized = false;
    if (initialized)
        return;
    initialized = true;
    UserDefaults::standardUserDefaults()->registerDefaults(prefDefaults());
}

const QVariantMap &AppDelegate::prefDefaults()
{
    static const QVariantMap defaults{{kToleranceKeyPath, QVariant(kDefaultTolerance)}};
    return defaults;
}

AppDelegate::AppDelegate(QObject *parent) : QObject(parent)
{
    initialize();
    _userDefaults = UserDefaults::standardUserDefaults();
}

AppDelegate::~AppDelegate()
{
    // Stop hearing about the preferences before anything else goes.
    unregisterObservedUserDefaults(this, prefDefaults());
    spectrum_1.reset();
    spectrum_2.reset();
    spectrum_3.reset();
    spectrum_4.reset();
    spectrum_5.reset();
}

void AppDelegate::applicationWillFinishLaunching()
{
    Updater *updater = Updater::sharedUpdater();
    QMenu *applicationMenu = ::applicationMenu(m_window);
    if (!applicationMenu)
        return;
    auto *item = new QAction(tr("Check for Updates\u2026"), applicationMenu);
    item->setObjectName(QStringLiteral("checkForUpdatesAction"));
    connect(item, &QAction::triggered, updater, &Updater::checkForUpdates);
    // Index 3 whatever the menu holds, after About, a separator and Preferences; a shorter
    // menu gets the item at its end.
    const QList<QAction *> items = applicationMenu->actions();
    applicationMenu->insertAction(items.size() > 3 ? items.at(3) : nullptr, item);
}

void AppDelegate::applicationDidFinishLaunching()
{
    registerObservedUserDefaults(this, prefDefaults());
}

void AppDelegate::observeValueForKeyPath(const QString &keyPath, QObject *, const KeyValueChange &,
                                         void *)
{
    // Re-colour only: the differences do not depend on the tolerance.
    if (keyPath == kToleranceKeyPath)
        updateUI();
}

void AppDelegate::parseXML(const QByteArray &text, BkgndColorView *sender)
{
    // A null text (the swatch could not read the file, or it was not UTF-8) is no XML at all.
    const CxFImportOutcome outcome =
        text.isNull() ? importUnreadableDocument({})
                      : importCxFDocument(std::string_view(text.constData(), size_t(text.size())));
    if (!outcome.logLine.empty())
        qCInfo(lcImport).noquote()
            << QString::fromUtf8(outcome.logLine.data(), qsizetype(outcome.logLine.size()));
    if (outcome.beep)
        QApplication::beep();
    if (outcome.alert)
        showAlert(*outcome.alert);
    if (!outcome.accepted())
        return; // the swatch and the samples stay as they were
    takeSample(outcome.lab, QString::fromStdString(outcome.caption), sender);
}

void AppDelegate::showAlert(const CxFAlert &alert)
{
    const auto text = [](std::string_view s) {
        return QString::fromUtf8(s.data(), qsizetype(s.size()));
    };
    QMessageBox box(QMessageBox::Warning, text(alert.title), text(alert.title),
                    QMessageBox::NoButton, m_window);
    box.setInformativeText(text(alert.message));
    box.addButton(text(alert.button), QMessageBox::AcceptRole);
    box.setWindowModality(Qt::ApplicationModal);
    if (m_alertPresenter)
        m_alertPresenter(box);
    else
        box.exec();
}

void AppDelegate::takeSample(LabColor lab, const QString &caption, BkgndColorView *sender)
{
    if (sender) {
        sender->setLabColor(lab);
        sender->setSwatchLabel(caption);
    }
    // Which sample follows from the sender's identity alone; another swatch sets none.
    storeSample(samples, sampleSlotForSender(sender, m_dragView1, m_dragView2), lab);
    calcDeltaE();
}

void AppDelegate::calcDeltaE()
{
    if (!samples.bothDefined())
        return;
    // Sample 1 is the reference: CMC weights by it, so the order matters.
    const CmcDifferences d = computeCmcDifferences(samples.lab_1, samples.lab_2);
    delta_E = d.delta_E;
    delta_L = d.delta_L;
    delta_C = d.delta_C;
    delta_H = d.delta_H;
    delta_H_deg = d.delta_H_deg;
    updateUI();
}

void AppDelegate::updateUI()
{
    if (!samples.bothDefined())
        return;
    const float tolerance = _userDefaults->floatForKey(kToleranceKeyPath);

    setValue(m_delta_E_tf, delta_E);
    const Verdict verdict = verdictFor(delta_E, tolerance);
    switch (verdict) {
    case Verdict::Neutral:
        setBackground(m_delta_E_tf, neutralBackground());
        break;
    case Verdict::Match:
        setBackground(m_delta_E_tf, kMatchGreen);
        break;
    case Verdict::Mismatch:
        setBackground(m_delta_E_tf, kMismatchRed);
        break;
    }
    showVerdict(verdict, tolerance);

    setValue(m_delta_L_tf, delta_L);
    setValue(m_delta_C_tf, delta_C);
    setValue(m_delta_H_tf, delta_H_deg);
    const Highlight highlight = highlightFor(differences());
    setBackground(m_delta_L_tf, highlight.lightness ? kHighlightPink : neutralBackground());
    setBackground(m_delta_C_tf, highlight.chroma ? kHighlightPink : neutralBackground());
    setBackground(m_delta_H_tf, highlight.hue ? kHighlightPink : neutralBackground());
    showDirections();
}

void AppDelegate::showVerdict(Verdict verdict, float tolerance)
{
    if (!m_verdictLabel)
        return;
    const QString limit = QString::number(double(tolerance), 'g', 6);
    switch (verdict) {
    case Verdict::Neutral:
        m_verdictLabel->setText(tr("identical"));
        m_verdictLabel->setToolTip(tr("The two samples have the same colour."));
        break;
    case Verdict::Match:
        m_verdictLabel->setText(tr("match"));
        m_verdictLabel->setToolTip(tr("Within the tolerance of %1.").arg(limit));
        break;
    case Verdict::Mismatch:
        m_verdictLabel->setText(tr("mismatch"));
        m_verdictLabel->setToolTip(tr("Beyond the tolerance of %1.").arg(limit));
        break;
    }
}

void AppDelegate::showDirections()
{
    setDirection(m_delta_L_tf, m_delta_L_caption, delta_L, tr("lighter"), tr("darker"),
                 tr("same lightness"));
    setDirection(m_delta_C_tf, m_delta_C_caption, delta_C, tr("more chroma"), tr("less chroma"),
                 tr("same chroma"));
    setDirection(m_delta_H_tf, m_delta_H_caption, delta_H_deg, tr("hue turned a* toward b*"),
                 tr("hue turned b* toward a*"), tr("same hue angle"));
}
