#include "Keelbright/widgets/theme/SymbolTable.h"

namespace keelbright {

namespace {

using namespace Qt::StringLiterals;

// The comments are the names of the glyphs in the icon font.
constexpr SymbolEntry entries[] = {
    {"app.badge.checkmark"_L1, u'\xF03B'},                                    // apps
    {"app.badge.minus"_L1, u'\xF03B', SymbolForm::badge, u'\xF376'},          // apps + minus-circle
    {"app.fill"_L1, u'\xF614'},                                               // application
    {"archivebox.fill"_L1, u'\xF5C4'},                                        // zip-box
    {"arrow.clockwise"_L1, u'\xF450'},                                        // refresh
    {"arrow.clockwise.circle"_L1, u'\xF450', SymbolForm::ring},               // refresh
    {"arrow.clockwise.circle.fill"_L1, u'\xF450'},                            // refresh
    {"arrow.counterclockwise"_L1, u'\xF54D'},                                 // undo-variant
    {"arrow.down.app.fill"_L1, u'\xF3D4'},                                    // package-down
    {"arrow.down.circle.fill"_L1, u'\xF1DA'},                                 // download
    {"arrow.left"_L1, u'\xF04D'},                                             // arrow-left
    {"arrow.left.circle"_L1, u'\xF04D', SymbolForm::ring},                    // arrow-left
    {"arrow.right"_L1, u'\xF054'},                                            // arrow-right
    {"arrow.up"_L1, u'\xF05D'},                                               // arrow-up
    {"arrow.up.arrow.down"_L1, u'\xF4E2'},                                    // swap-vertical
    {"arrow.up.forward.square"_L1, u'\xF3CC'},                                // open-in-new
    {"arrow.up.left"_L1, u'\xF05B'},                                          // arrow-top-left
    {"books.vertical.fill"_L1, u'\xF332'},                                    // library-books
    {"calendar"_L1, u'\xF0ED'},                                               // calendar
    {"chart.bar.doc.horizontal"_L1, u'\xF128'},                               // chart-bar
    {"chart.bar.fill"_L1, u'\xF128'},                                         // chart-bar
    {"checklist"_L1, u'\xF5C7'},                                              // playlist-check
    {"checkmark"_L1, u'\xF12C'},                                              // check
    {"checkmark.circle"_L1, u'\xF5E1'},                                       // check-circle-outline
    {"checkmark.circle.fill"_L1, u'\xF5E0'},                                  // check-circle
    {"checkmark.seal.fill"_L1, u'\xF5E0'},                                    // check-circle
    {"checkmark.shield.fill"_L1, u'\xF565'},                                  // verified
    {"chevron.down"_L1, u'\xF140'},                                           // chevron-down
    {"chevron.left"_L1, u'\xF141'},                                           // chevron-left
    {"chevron.left.forwardslash.chevron.right"_L1, u'\xF174'},                // code-tags
    {"chevron.right"_L1, u'\xF142'},                                          // chevron-right
    {"circle"_L1, u'\xF130'},                                                 // checkbox-blank-circle-outline
    {"clock.arrow.circlepath"_L1, u'\xF2DA'},                                 // history
    {"clock.badge.checkmark"_L1, u'\xF150', SymbolForm::badge, u'\xF5E0'},    // clock + check-circle
    {"clock.badge.questionmark"_L1, u'\xF150', SymbolForm::badge, u'\xF2D7'}, // clock + help-circle
    {"clock.fill"_L1, u'\xF150'},                                             // clock
    {"doc.badge.arrow.up"_L1, u'\xF214', SymbolForm::badge, u'\xF05F'},       // file + arrow-up-bold-circle
    {"doc.badge.checkmark"_L1, u'\xF214', SymbolForm::badge, u'\xF5E0'},      // file + check-circle
    {"doc.badge.gearshape"_L1, u'\xF214', SymbolForm::badge, u'\xF493'},      // file + settings
    {"doc.fill"_L1, u'\xF214'},                                               // file
    {"doc.richtext.fill"_L1, u'\xF225'},                                      // file-pdf
    {"doc.text.fill"_L1, u'\xF219'},                                          // file-document
    {"doc.text.magnifyingglass"_L1, u'\xF21E'},                               // file-find
    {"ellipsis"_L1, u'\xF1D8'},                                               // dots-horizontal
    {"exclamationmark.circle"_L1, u'\xF5D6'},                                 // alert-circle-outline
    {"exclamationmark.circle.fill"_L1, u'\xF028'},                            // alert-circle
    {"exclamationmark.triangle.fill"_L1, u'\xF026'},                          // alert
    {"externaldrive.badge.exclamationmark"_L1, u'\xF2CA', SymbolForm::badge,
     u'\xF028'},                                                                  // harddisk + alert-circle
    {"externaldrive.badge.plus"_L1, u'\xF2CA', SymbolForm::badge, u'\xF417'},     // harddisk + plus-circle
    {"externaldrive.badge.timemachine"_L1, u'\xF06F'},                            // backup-restore
    {"externaldrive.fill"_L1, u'\xF2CA'},                                         // harddisk
    {"film.fill"_L1, u'\xF230'},                                                  // filmstrip
    {"folder"_L1, u'\xF256'},                                                     // folder-outline
    {"folder.badge.gear"_L1, u'\xF24B', SymbolForm::badge, u'\xF493'},            // folder + settings
    {"folder.badge.gearshape"_L1, u'\xF253'},                                     // folder-multiple
    {"folder.badge.magnifyingglass"_L1, u'\xF24B', SymbolForm::badge, u'\xF349'}, // folder + magnify
    {"folder.badge.plus"_L1, u'\xF257'},                                          // folder-plus
    {"folder.fill"_L1, u'\xF24B'},                                                // folder
    {"gear"_L1, u'\xF493'},                                                       // settings
    {"gearshape.2.fill"_L1, u'\xF493'},                                           // settings
    {"globe"_L1, u'\xF59F'},                                                      // web
    {"hammer.fill"_L1, u'\xF5B7'},                                                // wrench
    {"house.fill"_L1, u'\xF2DC'},                                                 // home
    {"info.circle.fill"_L1, u'\xF2FC'},                                           // information
    {"internaldrive"_L1, u'\xF2CA'},                                              // harddisk
    {"internaldrive.fill"_L1, u'\xF2CA'},                                         // harddisk
    {"iphone.fill"_L1, u'\xF120'},                                                // cellphone-iphone
    {"line.3.horizontal.decrease.circle"_L1, u'\xF236', SymbolForm::ring},        // filter-variant
    {"list.bullet"_L1, u'\xF572'},                                                // view-list
    {"magnifyingglass"_L1, u'\xF349'},                                            // magnify
    {"magnifyingglass.circle"_L1, u'\xF349', SymbolForm::ring},                   // magnify
    {"magnifyingglass.circle.fill"_L1, u'\xF349'},                                // magnify
    {"menubar.rectangle"_L1, u'\xF1C4'},                                          // desktop-mac
    {"minus"_L1, u'\xF374'},                                                      // minus
    {"minus.circle"_L1, u'\xF377'},                                               // minus-circle-outline
    {"minus.circle.fill"_L1, u'\xF376'},                                          // minus-circle
    {"music.note"_L1, u'\xF387'},                                                 // music-note
    {"person.fill"_L1, u'\xF004'},                                                // account
    {"photo.fill"_L1, u'\xF2E9'},                                                 // image
    {"photo.stack.fill"_L1, u'\xF2F9'},                                           // image-multiple
    {"plus"_L1, u'\xF415'},                                                       // plus
    {"plus.circle"_L1, u'\xF419'},                                                // plus-circle-outline
    {"plus.circle.fill"_L1, u'\xF417'},                                           // plus-circle
    {"questionmark.circle"_L1, u'\xF625'},                                        // help-circle-outline
    {"shield.fill"_L1, u'\xF498'},                                                // shield
    {"shippingbox.fill"_L1, u'\xF3D7'},                                           // package-variant-closed
    {"slider.horizontal.3"_L1, u'\xF62E'},                                        // tune
    {"sparkles"_L1, u'\xF068'},                                                   // auto-fix
    {"square.and.arrow.up"_L1, u'\xF496'},                                        // share
    {"square.grid.2x2.fill"_L1, u'\xF56E'},                                       // view-dashboard
    {"star.fill"_L1, u'\xF4CE'},                                                  // star
    {"tag.fill"_L1, u'\xF4F9'},                                                   // tag
    {"terminal.fill"_L1, u'\xF18D'},                                              // console
    {"timer"_L1, u'\xF51B'},                                                      // timer
    {"trash"_L1, u'\xF1C0'},                                                      // delete
    {"trash.circle"_L1, u'\xF1C0', SymbolForm::ring},                             // delete
    {"trash.fill"_L1, u'\xF1C0'},                                                 // delete
    {"trash.slash"_L1, u'\xF1C0', SymbolForm::struck},                            // delete
    {"xmark"_L1, u'\xF156'},                                                      // close
    {"xmark.circle"_L1, u'\xF15A'},                                               // close-circle-outline
    {"xmark.circle.fill"_L1, u'\xF159'},                                          // close-circle
    {"xmark.octagon.fill"_L1, u'\xF15C'},                                         // close-octagon
};

} // namespace

std::span<const SymbolEntry> symbolTable()
{
    return entries;
}

} // namespace keelbright
