#pragma once
// Preferences: the delta E tolerance. Edits are written to the user defaults at once, and the
// open main window re-colours through its observation of them.

#include "KeyValueObserving.h"

#include <QDialog>

class QDoubleSpinBox;
class UserDefaults;

class PreferencesDialog : public QDialog, public KeyValueObserver
{
    Q_OBJECT

public:
    explicit PreferencesDialog(UserDefaults *defaults, QWidget *parent = nullptr);
    ~PreferencesDialog() override;

    // One dialog per main window, raised when already open.
    static PreferencesDialog *showShared(QWidget *parent);

    QDoubleSpinBox *toleranceField() const { return m_tolerance; }

    void observeValueForKeyPath(const QString &keyPath, QObject *object,
                                const KeyValueChange &change, void *context) override;

private:
    void writeTolerance(double value);

    UserDefaults *m_defaults;
    QDoubleSpinBox *m_tolerance;
};
