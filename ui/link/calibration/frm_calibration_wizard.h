#pragma once

#include <QDialog>
#include <array>
#include <functional>

#include "app/context.h"
#include "comm/calibration/calibration.h"
#include "ui/dialogs/dialogs.h"
#include "ui/document_session.h"
#include "ui/link/link_desk.h"

class QCheckBox;
class QComboBox;
class QLabel;
class QLineEdit;
class QProgressBar;
class QPushButton;
class QStackedWidget;
class QTextBrowser;

namespace calyx::ui {

// Calibrates a scale of the connected indicator, page by page. Finish takes the new calibration over into the
// document; Cancel puts the old one back and sees whether it is there.
class frmCalibrationWizard : public QDialog, private ICalibrationEvents {
    Q_OBJECT

  public:
    frmCalibrationWizard(AppContext& app, DocumentSession& session, LinkDesk& desk, Dialogs& dialogs,
                         const QString& documentName, QWidget* parent);

    // A calibration that was cut off, once the dialog is open.
    void RestorePending();
    void reject() override;

    static std::string JournalFile(const AppContext& app) {
        return app.folders.userData + "calibration.journal";
    }

  private:
    enum Page { kScalePage, kZeroPage, kSpanPage, kLinearPage, kRezeroPage, kEndPage, kRestorePage };

    void AddScales();
    void MakePages();
    QWidget* AddPage(int title, int words);
    QLabel* MakeUnits();
    void ShowUnits(int scale);
    void MakeWeightRow();
    void AddStep(QWidget* page, int caption, const char* name, void (frmCalibrationWizard::*click)());
    void AddLinear(QWidget* page);
    void AddEnd(QWidget* page);
    QLayout* MakeButtons();

    void MoveNext();
    void MoveBack();
    void Show(Page page);
    void GetCurrentCalibration();
    void cmdCalZero_Click();
    void cmdCalSpan_Click();
    void cmdRezero_Click();
    void cmdGoLinear_Click(int point);
    void GetNewCalibration();
    void cmdFinish_Click();
    void SaveCertificate();
    void Print();
    void ShowCertificate();
    std::string Certificate() const;
    void ShowCount(QLabel& label, const std::string& command, const std::string& before);
    bool Work(const std::function<bool()>& work);
    void GiveUp();
    void ShowButtons();
    std::optional<std::string> Weight(QLineEdit& field);
    void WriteStatusMessage(int number, const std::string& text) override;
    QString Text(int number) const;

    AppContext& app_;
    DocumentSession& session_;
    LinkDesk& desk_;
    Dialogs& dialogs_;
    QString documentName_;
    CCalibration calibration_;
    QStackedWidget* pages_;
    QComboBox* scale_;
    QWidget* weightRow_ = nullptr;
    QLineEdit *weight_, *who_;
    QCheckBox *keepZero_, *keepSpan_;
    QLabel *zeroCount_, *spanCount_, *status_;
    struct Point {
        QLineEdit* weight;
        QLabel* count;
    };
    std::array<Point, CalibrationValues::kPoints> points_{};
    std::vector<QLabel*> units_;  // behind the weights
    QTextBrowser* certificate_;
    QProgressBar* progress_;
    QPushButton *back_, *next_, *cancel_;
    bool zeroed_ = false, spanned_ = false;
    bool works_ = false, leaving_ = false, givingUp_ = false;
};

}  // namespace calyx::ui
