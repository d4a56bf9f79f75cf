#include "interface/home_screen.h"

#include "controls/button_hover_complex.h"
#include "controls/elided_label.h"
#include "controls/images.h"
#include "controls/look.h"
#include "controls/solid_bars.h"
#include "controls/view_background.h"
#include "interface/making.h"
#include "interface/picture_view.h"
#include "interface/placement.h"
#include "interface/product_title.h"
#include "interface/text_block.h"

namespace tarvin {

namespace {

void makeTile(ButtonHoverComplex& tile, const QString& title, const QString& pictureName,
              const QColor& color) {
    tile.setTitle(title);
    tile.setImageNormal(pictureIcon(pictureName), {});
    tile.setFillColor(color);
}

}  // namespace

HomeScreen::HomeScreen(ViewTopBar* bar)
    : Screen(QStringLiteral("1"), bar),
      brandMark(named(new PictureView(bar), "brandMark")),
      viewBackground(named(new ViewBackground(this), "viewBackground")),
      homePage(named(new PictureView(this), "HomePage")),
      heading(
          named(makeLabel(tr("Find duplicate files"), look::font(28, QFont::DemiBold), look::ink),
                "heading")),
      explanation(named(new TextBlock(look::font(14), 22, look::muted), "explanation")),
      mainScanButton(named(new ButtonHoverComplex(this), "mainScanButton")),
      buttonScanDrive(mainScanButton),
      mainScanButtonFolder(named(new ButtonHoverComplex(this), "mainScanButtonFolder")),
      cleanHistory(
          named(makeLabel({}, look::font(13, QFont::Medium), look::surface, Qt::AlignHCenter),
                "cleanHistory")) {
    brandMark->setPictureName(QStringLiteral("ui/brand_mark"));
    homePage->setBacked(true);
    explanation->setText(
        tr("Choose where to look. Identical files are grouped into sets, so you "
           "can review them and move the copies to the Trash."));
    makeTile(*mainScanButton, tr("Scan Drives"), QStringLiteral("ui/tile_drives"), look::deepTeal);
    makeTile(*mainScanButtonFolder, tr("Scan Folders"), QStringLiteral("ui/tile_folders"),
             look::topBar);
    QPalette colors = palette();
    colors.setColor(QPalette::Window, look::panelBlue);
    setPalette(colors);
    setAutoFillBackground(true);

    showInBar(brandMark);
    makeTitle("homeScreenTitle", productTitle());
    placeControls();
    cleanHistory->hide();
    setReadingOrder({mainScanButton, mainScanButtonFolder});
    setFirstControl(mainScanButton);
}

void HomeScreen::placeControls() {
    brandMark->setGeometry(14, 9, 26, 26);
    auto* placement = new Placement(this, designSize);
    const auto withCard = [placement](QWidget* control, QRect design, Fit fit = Fit::drawn) {
        placement->place(control, {design, inMiddle, inMiddle, fit});
    };
    withCard(viewBackground, {-11, 0, 1038, 486});
    withCard(homePage, {51, 43, 914, 400});
    withCard(heading, {91, 87, 430, 36});
    withCard(explanation, {91, 133, 412, 44}, Fit::taller);
    withCard(mainScanButton, {91, 219, 190, 160});
    withCard(mainScanButtonFolder, {297, 219, 190, 160});
    withCard(cleanHistory, {51, 443, 914, 43});
}

}  // namespace tarvin
