#pragma once

#include <QDialog>
#include <memory>

class HelpServices;

namespace Ui {
class frmAbout;
}

// The about box: the logo, the program's captions, OK and the system information button.
class AboutDialog : public QDialog {
    Q_OBJECT
public:
    AboutDialog(HelpServices& help, QWidget* parent = nullptr);
    ~AboutDialog() override;

    void cmdOK_Click();
    void cmdSysInfo_Click();

private:
    HelpServices& help_;
    std::unique_ptr<Ui::frmAbout> ui_;
};
