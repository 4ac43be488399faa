#include "net/wx/Transcript.h"

#include "net/wx/wiretext.h"

namespace tarveth {

namespace {

// In tenths of a millimetre.
constexpr int kMargin = 12;
constexpr int kHanging = 24; // of a long line's further rows
constexpr int kBetweenLines = 4;

wxTextAttr StyleIn(const wxColour& colour) {
    wxTextAttr style(colour);
    style.SetLeftIndent(kMargin, kHanging);
    style.SetRightIndent(kMargin);
    style.SetParagraphSpacingBefore(kBetweenLines);
    return style;
}

} // namespace

Transcript::Transcript(wxWindow* parent)
    : wxTextCtrl(parent, wxID_ANY, "", wxDefaultPosition, wxDefaultSize,
                 wxTE_MULTILINE | wxTE_READONLY | wxTE_RICH2) {
    SetBackgroundColour(*wxWHITE); // in every theme, as the user has chosen the colours on white
}

void Transcript::ApplySettings(const Settings& settings) {
    const auto colour = [](std::int32_t value) { return wxColour(static_cast<unsigned long>(value)); };
    colours_ = {colour(settings.TranscriptColor), colour(settings.TranscriptMyColor),
                colour(settings.TranscriptOppColor), colour(settings.TranscriptSysColor)};
    SetFont(UserFont(settings.TranscriptFontName, settings.TranscriptFontSize));
    lines_.TakeUpdate();
    Clear();
    AppendFrom(0);
}

void Transcript::ShowUpdate() {
    const TranscriptLines::Update update = lines_.TakeUpdate();
    if (update.gone > 0)
        Remove(0, static_cast<long>(update.gone));
    AppendFrom(update.firstNew);
}

std::string Transcript::Text() const {
    std::string text;
    for (const TranscriptLine& line : lines_.Lines())
        text += line.text + "\r\n";
    return text;
}

// Lines of one colour that follow each other are one text for the toolkit.
void Transcript::AppendFrom(std::size_t line) {
    const auto& lines = lines_.Lines();
    while (line < lines.size()) {
        const LineKind kind = lines[line].kind;
        std::string text;
        for (; line < lines.size() && lines[line].kind == kind; ++line)
            text += lines[line].text + '\n';
        SetDefaultStyle(StyleIn(colours_[static_cast<std::size_t>(kind)]));
        AppendText(WxFromWire(text));
    }
}

} // namespace tarveth
