#include "PreferencesDialog.h"

#include "UserDefaults.h"
#include "preferences.h"

#include <QDialogButtonBox>
#include <QDoubleSpinBox>
#include <QFormLayout>
#include <QLabel>
#include <QPointer>
#include <QVBoxLayout>

namespace {
const QString kToleranceKeyPath = QLatin1String(kToleranceKey);
}

PreferencesDialog::PreferencesDialog(UserDefaults *defaults, QWidget *parent)
    : QDialog(parent), m_defaults(defaults), m_tolerance(new QDoubleSpinBox(this))
{
    setWindowTitle(tr("Preferences"));
    m_tolerance->setObjectName(QStringLiteral("toleranceField"));
    m_tolerance->setRange(0.0, 100.0);
    m_tolerance->setDecimals(2);
    m_tolerance->setSingleStep(0.1);
    m_tolerance->setValue(double(m_defaults->floatForKey(kToleranceKeyPath)));
    m_tolerance->setAccessibleName(tr("Delta E tolerance"));

    auto *form = new QFormLayout;
    form->addRow(tr("&Tolerance (ΔE CMC 2:1):"), m_tolerance);
    auto *hint = new QLabel(tr("Differences up to the tolerance show as a match (green), larger "
                               "ones as a mismatch (red)."));
    hint->setWordWrap(true);
    auto *buttons = new QDialogButtonBox(QDialogButtonBox::Close);
    connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);

    auto *layout = new QVBoxLayout(this);
    layout->addLayout(form);
    layout->addWidget(hint);
    layout->addWidget(buttons);

    connect(m_tolerance, &QDoubleSpinBox::valueChanged, this, &PreferencesDialog::writeTolerance);
    m_defaults->addObserver(this, kToleranceKeyPath, KeyValueObservingOption::New, nullptr);
}

PreferencesDialog::~PreferencesDialog()
{
    m_defaults->removeObserver(this, kToleranceKeyPath);
}

PreferencesDialog *PreferencesDialog::showShared(QWidget *parent)
{
    static QPointer<PreferencesDialog> shared;
    if (!shared) {
        shared = new PreferencesDialog(UserDefaults::standardUserDefaults(), parent);
        shared->setAttribute(Qt::WA_DeleteOnClose);
    }
    shared->show();
    shared->raise();
    shared->activateWindow();
    return shared;
}

void PreferencesDialog::writeTolerance(double value)
{
    // The spin box shows two decimals; the float stored is the value as typed.
    if (float(value) != m_defaults->floatForKey(kToleranceKeyPath))
        m_defaults->setFloat(float(value), kToleranceKeyPath);
}

void PreferencesDialog::observeValueForKeyPath(const QString &keyPath, QObject *,
                                               const KeyValueChange &, void *)
{
    // Another writer changed the tolerance: show it, without writing it back.
    if (keyPath != kToleranceKeyPath)
        return;
    const QSignalBlocker blocker(m_tolerance);
    m_tolerance->setValue(double(m_defaults->floatForKey(kToleranceKeyPath)));
}
