#pragma once

#include "base/colours.h"

#include <QString>
#include <array>
#include <optional>

// The settings in config.ini, each a key with its kind. They are read when they are asked for and
// written at once, through core::services().config, and kept nowhere. A key that isn't there, or no
// store at all, reads as the text "ERROR", from which each kind makes what it makes of any text.
namespace core {

// Which numbers mean on; the last takes "True" for on too. What is written is "1" and "0", for Zero
// the other way round, and "True" and "False" for True.
enum class On { NotZero, Zero, One, True };

struct SwitchKey {
    const char* name;
    On on;
};
// By leading digits: a text without any is 0.
struct NumberKey {
    const char* name;
};
// One of a few by its digit, from 0; any other text is the first.
struct ChoiceKey {
    const char* name;
    int choices; // ten at the most
};
// The decimal value; a text that is no whole number is no colour.
struct ColourKey {
    const char* name;
};
// A path; empty where none is told.
struct FolderKey {
    const char* name;
};
// The text as it stands in the file, "ERROR" where there is none.
struct TextKey {
    const char* name;
};

[[nodiscard]] bool setting(const SwitchKey& key);
[[nodiscard]] double setting(const NumberKey& key);
[[nodiscard]] int setting(const ChoiceKey& key);
[[nodiscard]] std::optional<base::Colour> setting(const ColourKey& key);
[[nodiscard]] QString setting(const FolderKey& key);
[[nodiscard]] QString setting(const TextKey& key);

// On disk when it returns; a failed write changes nothing and says nothing.
void store(const SwitchKey& key, bool on);
void store(const NumberKey& key, qint64 number);
void store(const ChoiceKey& key, int choice);
void store(const ColourKey& key, base::Colour colour);
void store(const FolderKey& key, const QString& folder);
void store(const TextKey& key, const QString& text);

// The colour in words, "RGB(82, 109, 220)". They tell whoever reads the file; setting() finds no
// colour in them, so that whatever the key colours keeps the colour it has.
void storeInWords(const ColourKey& key, base::Colour colour);

// Keeps to what the program did from the start: what has come since is off. Each such feature asks
// once, where it begins.
inline constexpr SwitchKey kClassic{"Classic", On::One};

// What is shown at start. Pan view, scroll bars and zoom tool are stored the wrong way round.
inline constexpr SwitchKey kBrowseMode{"ObcBrowse", On::NotZero};
inline constexpr SwitchKey kBestFit{"BestFit", On::NotZero};
inline constexpr SwitchKey kPanView{"Panview", On::Zero};
inline constexpr SwitchKey kScrollBars{"Scrollshow", On::Zero};
inline constexpr SwitchKey kZoomTool{"fastZoomshow", On::Zero};
inline constexpr FolderKey kStartFolder{"SpeciFolder"};
// The first right click asks whether to import, instead of opening the menu.
inline constexpr SwitchKey kAskToImport{"WinState", On::One};

inline constexpr SwitchKey kOwnLook{"InterfaceB", On::True}; // title strips as pictures
inline constexpr ColourKey kTitleColour{"InterfaceColor"};   // of strips without
inline constexpr ColourKey kViewerColour{"EditorColor"};
inline constexpr NumberKey kThumbnailSize{"BrowserSize"};        // pixels
inline constexpr ChoiceKey kThumbnailColours{"BrowserColor", 6}; // entries of the presets

// How many entries the lists have.
inline constexpr NumberKey kFavouriteCount{"No"};
inline constexpr NumberKey kEditorCount{"Sno"};
inline constexpr NumberKey kRecentPathCount{"Xno"};

inline constexpr NumberKey kFilter{"Filter"}; // what the separate editor does as it starts

// The mail server, its port and the sender's address, as they were typed.
inline constexpr TextKey kMailServer{"Servername"};
inline constexpr TextKey kMailPort{"Serverport"};
inline constexpr TextKey kMailAddress{"Mailtext"};
// How the server is talked to, and who logs in. The password is never here.
inline constexpr ChoiceKey kMailSecurity{"MailSecurity", 3}; // none, STARTTLS, TLS
inline constexpr TextKey kMailUser{"MailUser"};

inline constexpr std::array kSettingNames{
    kClassic.name,          kBrowseMode.name,     kBestFit.name,      kPanView.name,
    kScrollBars.name,       kZoomTool.name,       kStartFolder.name,  kAskToImport.name,
    kOwnLook.name,          kTitleColour.name,    kViewerColour.name, kThumbnailSize.name,
    kThumbnailColours.name, kFavouriteCount.name, kEditorCount.name,  kRecentPathCount.name,
    kFilter.name,           kMailServer.name,     kMailPort.name,     kMailAddress.name,
    kMailSecurity.name,     kMailUser.name,
};

} // namespace core
