#include "AboutDialog.h"

#include "Logo.h"
#include "store/HelpServices.h"
#include "ui_AboutDialog.h"

AboutDialog::AboutDialog(HelpServices& help, QWidget* parent)
    : QDialog(parent)
    , help_(help)
    , ui_(std::make_unique<Ui::frmAbout>())
{
    ui_->setupUi(this);
    ui_->Picture1->setPixmap(Logo::pixmap(128, devicePixelRatioF()));
    QFont title = ui_->lblTitle->font();
    title.setBold(true);
    title.setPointSizeF(title.pointSizeF() * 1.25);
    ui_->lblTitle->setFont(title);
    connect(ui_->cmdOK, &QPushButton::clicked, this, &AboutDialog::cmdOK_Click);
    connect(ui_->cmdSysInfo, &QPushButton::clicked, this, &AboutDialog::cmdSysInfo_Click);
    setFixedSize(sizeHint());
}

AboutDialog::~AboutDialog() = default;

void AboutDialog::cmdOK_Click() { accept(); }

void AboutDialog::cmdSysInfo_Click() { help_.StartSysInfo(); }
