#pragma once

#include "controls/input/choice_box.h"
#include "controls/input/up_down.h"
#include "core/commands.h"
#include "ui/pages/page.h"
#include "ui/pages/web_album_samples.h"
#include "ui/parts/colour_field.h"
#include "ui/parts/scrolled_content.h"
#include "webalbum/web_album_values.h"

#include <QGridLayout>
#include <QLabel>
#include <QLineEdit>

#include <memory>

namespace velorama {

/// The page WebAlbum of the main window: what an album of web pages is to look like. Its controls
/// are the only store of these settings while the program runs.
class WebAlbumPage : public Page {
    Q_OBJECT
public:
    WebAlbumPage(QWidget& surface, Commands& commands, CommonDialog& cdlDIALOG);

    QLineEdit* txtTITLE = nullptr;
    /// Swatch, button, drop-down and arrow of one colour each, under their own names.
    ColourField* picBACKGROUND = nullptr;
    ColourField* picTEXTCOLOR = nullptr;
    ColourField* picBARCOL = nullptr;
    ColourField* picTITLEBARCOL = nullptr;
    ColourField* picTITLEBARTEXTCOL = nullptr;
    ChoiceBox* cboFONTS = nullptr;
    ChoiceBox* cboFONTSIZE = nullptr;
    ChoiceBox* cboFONTSBAR = nullptr;
    ChoiceBox* cboFONTSSIZEBAR = nullptr;
    updown* udnPHOTO = nullptr;
    updown* udnTHUMBNAIL = nullptr;
    cbtn* cbtnWEBALBUM = nullptr;
    cbtn* cbtnVIEWWEBALB = nullptr;

    /// Takes the eleven values from the settings; one that is not there leaves its control as it
    /// is from the design.
    void load();
    void save() const;
    /// What the controls hold.
    WebAlbumValues values() const;
    const WebAlbumSamples& samples() const { return *samples_; }

    /// Without slides the page says so, and leads to where they are chosen.
    void setHasSlides(bool hasSlides);
    /// What the samples show; the title is the page's own.
    void setSampleSlides(const SampleAlbum& album);
    /// Where an album of the present title lies, for the button that opens it; empty without one.
    void setAlbumFolder(const QString& folder);

    void makeRoom() override;
    /// Settings and samples stand side by side or below one another, as the width allows, and the
    /// samples take what room is left. Where there is too little they scroll.
    void layOut() override;
    void beginAtTop() override { scroll_->toTop(); }
    QWidget* firstFocus() const override { return txtTITLE; }
    QList<QWidget*> tabOrder() const override;
    void tint() override;

signals:
    void Shown();

protected:
    void showEvent(QShowEvent* event) override;

private:
    void makeControls(CommonDialog& cdlDIALOG);
    void connectSamples();
    void makeNoSlides(Commands& commands);
    void placeNoSlides();
    void makeColours(CommonDialog& cdlDIALOG);
    void makeFonts();
    using Field = std::pair<const char*, QWidget*>;
    QLayout* columnOf(std::initializer_list<Field> fields);
    QBoxLayout* settings();
    QBoxLayout* panes();
    void alignCaptions(bool areAligned);
    void arrangeBeside();
    /// Logical pixels that so many lines of text take.
    int leastPane(int lines) const;
    int scrollBar() const;
    int headingHeight(int width) const;
    void growSamples();
    void sizeSamples();
    void showTitle();
    void WebAlbumSampleUpdate();

    /// What a side of a sample has at least, in lines of text.
    static constexpr int leastLines = 6;
    /// Of the samples as they are arranged, in logical pixels.
    int leastWidth_ = 0;
    Label* lblNOSLIDES_ = nullptr;
    cbtn* btnCHOOSE_ = nullptr;
    bool hasSlides_ = false;
    ScrolledContent* scroll_;
    QWidget* content_;
    /// The two columns of fields; these and the samples.
    QBoxLayout* settings_ = nullptr;
    QBoxLayout* row_ = nullptr;
    QList<QGridLayout*> columns_;
    QList<const QLabel*> captions_;
    QList<const QLabel*> headings_;
    /// The fields in the order of the Tab key.
    QList<QWidget*> fields_;
    std::unique_ptr<WebAlbumSamples> samples_;
};

}  // namespace velorama
