#pragma once

#include <QWidget>

#include "comm/link_settings.h"
#include "model/language/resource_texts.h"

class QCheckBox;
class QComboBox;
class QLabel;
class QPushButton;
class QSpinBox;

namespace calyx::ui {

// The choice of a serial line to an indicator: the ports of this computer with what they are, how characters
// go over the line, and how its settings are found out. `ListSerialPorts` is asked when it is made and by
// Refresh.
class ctlSerial : public QWidget {
    Q_OBJECT

  public:
    // Plain: a line without an indicator at its other end, so that nothing is found out or addressed.
    enum class Use { Indicator, Plain };
    explicit ctlSerial(const ResourceTexts& texts, Use use = Use::Indicator, QWidget* parent = nullptr);

    void Show(const LinkSettings& settings);
    void Take(LinkSettings& settings) const;  // the serial ones; method as chosen here
    void ShowFound(const LinkSettings& found);
    bool HasPort() const;
    void FocusPort();
    void Refresh();

  signals:
    void DetectWanted();

  private:
    void MakeFields(Use use);
    QWidget* MakePortRow();
    QWidget* MakeFramingRow();
    QWidget* MakeAddressRow();
    void ShowChoices();
    std::string Port() const;

    const ResourceTexts& texts_;
    QComboBox *port_, *baud_, *parity_, *dataBits_, *stopBits_;
    QLabel* noPorts_;
    QCheckBox *addressed_, *everyTime_, *storedFirst_;
    QSpinBox* address_;
    QPushButton* detect_;
};

}  // namespace calyx::ui
