// What the page WebAlbum keeps between two runs.

#include "ui/pages/web_album_page.h"
#include "webalbum/web_album_settings.h"

namespace velorama {

void WebAlbumPage::load() {
    const WebAlbumValues stored = loadWebAlbumValues(values());
    picBACKGROUND->setBackColor(stored.picBACKGROUND);
    picTEXTCOLOR->setBackColor(stored.picTEXTCOLOR);
    picBARCOL->setBackColor(stored.picBARCOL);
    picTITLEBARCOL->setBackColor(stored.picTITLEBARCOL);
    picTITLEBARTEXTCOL->setBackColor(stored.picTITLEBARTEXTCOL);
    cboFONTS->setText(stored.cboFONTS);
    cboFONTSIZE->setText(stored.cboFONTSIZE);
    cboFONTSBAR->setText(stored.cboFONTSBAR);
    cboFONTSSIZEBAR->setText(stored.cboFONTSSIZEBAR);
    udnPHOTO->setText(stored.udnPHOTO);
    udnTHUMBNAIL->setText(stored.udnTHUMBNAIL);
    WebAlbumSampleUpdate();
}

void WebAlbumPage::save() const {
    saveWebAlbumValues(values());
}

WebAlbumValues WebAlbumPage::values() const {
    return {.txtTITLE = txtTITLE->text(),
            .picBACKGROUND = picBACKGROUND->BackColor(),
            .picTEXTCOLOR = picTEXTCOLOR->BackColor(),
            .picBARCOL = picBARCOL->BackColor(),
            .picTITLEBARCOL = picTITLEBARCOL->BackColor(),
            .picTITLEBARTEXTCOL = picTITLEBARTEXTCOL->BackColor(),
            .cboFONTS = cboFONTS->Text(),
            .cboFONTSIZE = cboFONTSIZE->Text(),
            .cboFONTSBAR = cboFONTSBAR->Text(),
            .cboFONTSSIZEBAR = cboFONTSSIZEBAR->Text(),
            .udnPHOTO = udnPHOTO->Text(),
            .udnTHUMBNAIL = udnTHUMBNAIL->Text()};
}

}  // namespace velorama
