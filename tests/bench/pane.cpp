// What the settings pane costs: opening it with 1,000 themes against 10, and a change in its editor against
// the preview that follows the change.
#include <malloc.h>

#include "kept_files.h"
#include "laid_out_packages.h"
#include "measuring/check.h"
#include "measuring/child.h"
#include "measuring/ratio.h"
#include "measuring/timing.h"
#include "platform/controls.h"
#include "platform/tables.h"

namespace bench {

namespace {

constexpr int few = 10, many = 1000;

/// Settings, on a phone of somebody with so many themes.
class Settings {
  public:
    explicit Settings(int themes) {
        test::lay_out_packages(phone_, HUECRAFT_PANE);
        for (int i = 0; i < themes; ++i) {
            const std::string name = "Theme " + std::to_string(i);
            test::put_theme(phone_, name + ".plist", name);
        }
        phone_.start({.executable = "/Applications/Preferences.app/Preferences"});
        check(phone_.loaded_library() && sim_open_settings() == SIM_OK && sim_advance_clock(1) == SIM_OK,
              "Settings is on the screen");
    }
    /// Until the page has come in.
    double seconds_of_opening() const {
        processor_seconds();
        const double before = processor_seconds();
        check(sim_tap_label("Huecraft") == SIM_OK && sim_advance_clock(1) == SIM_OK, "the pane opens");
        return processor_seconds() - before;
    }
    void close() const {
        check(sim_tap_label("Settings") == SIM_OK && sim_advance_clock(1) == SIM_OK, "the pane closes");
    }

  private:
    test::Phone phone_;
};

UITableView* table() {
    void* view = nullptr;
    check(sim_view_on_screen("UITableView", &view) == SIM_OK && view, "a table is on the screen");
    return static_cast<UITableView*>(static_cast<id>(view));
}

/// Of a process of its own: the first opening, and one after others.
std::vector<double> openings(int themes) {
    const Settings settings(themes);
    const double first = settings.seconds_of_opening();
    check(table()->numberOfRowsInSection(1) == themes, "the themes are listed");
    std::vector<double> again;
    constexpr int times = 15;
    for (int i = 0; i < times; ++i) {
        objc::AutoreleasePool pool;
        settings.close();
        again.push_back(settings.seconds_of_opening());
    }
    return {first, undisturbed(again)};
}

/// A layout pass, as comes after every touch.
void lay_out() { check(sim_advance_clock(0) == SIM_OK, "the screen is laid out"); }

NSObject* open_editor() {
    auto* page = static_cast<NSObject*>(table()->dataSource());
    page->send<"tableView:accessoryButtonTappedForRowWithIndexPath:">(table(),
                                                                      NSIndexPath::indexPathForRow(0, 1));
    check(sim_advance_clock(1) == SIM_OK, "the editor opens");
    auto* editor = static_cast<NSObject*>(table()->dataSource());
    check(editor->respondsToSelector(objc::selector<"capsSwitched:">()), "the table is the editor's");
    return editor;
}

/// The preview of the theme that the editor shows, alone on the editor's page, as large as a keyboard.
class PreviewAlone {
  public:
    PreviewAlone()
        : theme_(objc::send<"configWithFilename:", NSObject*>(test::class_named("HuecraftConfig"),
                                                              test::text("Theme 0.plist"))),
          preview_(objc::send<"sharedInstance", id>(test::class_named("HCPreview"))) {
        check(theme_ && preview_, "the library previews themes");
        const CGSize size = objc::send<"keyboardPortraitSize", CGSize>(test::class_named("HCPreview"));
        room_ = UIView::alloc()->initWithFrame({{0, 0}, size});
        table()->superview()->addSubview(room_);
    }
    id theme() const { return theme_.get(); }
    void show() {
        if (shown_) shown_->removeFromSuperview();
        shown_ = objc::send<"viewForConfig:", UIView*>(preview_, theme_.get());
        shown_->setFrame(room_->bounds());
        room_->addSubview(shown_);
        lay_out();
    }

  private:
    objc::strong<NSObject> theme_;
    id preview_;
    objc::strong<UIView> room_, shown_;
};

/// Something else each time.
double next_value() {
    static int step = 0;
    return 0.2 + 0.005 * (step++ % 100);
}

/// What a colour from the picker costs, and its preview; what a slider costs that changes an image's alpha,
/// and its preview.
std::vector<double> changes() {
    // The pictures of one preview are the memory of the next, whatever this process was copied from.
    constexpr int kept = 64 << 20;
    mallopt(M_MMAP_THRESHOLD, kept);
    mallopt(M_TRIM_THRESHOLD, kept);
    const Settings settings(1);
    settings.seconds_of_opening();
    NSObject* editor = open_editor();
    PreviewAlone preview;
    const auto next_colour = [] { return UIColor::colorWithRGB(next_value(), 0.8, 0.6, 1); };
    constexpr int rounds = 31;
    const auto coloured = seconds_of(rounds, {[&] {
                                                  objc::send<"colorPickerReturnedWithColor:andHexString:">(
                                                      static_cast<id>(editor), next_colour(), id());
                                                  lay_out();
                                              },
                                              [&] {
                                                  objc::send<"setTextColor:">(preview.theme(), next_colour());
                                                  preview.show();
                                              }});

    UIImage* photo = test::filled_image(test::color(0.1, 0.2, 0.3), 750, 512);
    editor->send<"photoCropped:">(photo);
    editor->send<"viewWillAppear:">(false);
    objc::send<"setImageData:">(preview.theme(), photo);
    objc::send<"setBackgroundType:">(preview.theme(), NSUInteger{3});
    const auto slider = UISlider::make<"initWithFrame:">(CGRect{});
    const auto slid = seconds_of(rounds, {[&] {
                                              slider->setValue(static_cast<float>(next_value()));
                                              editor->send<"alphaChanged:">(slider.get());
                                              lay_out();
                                          },
                                          [&] {
                                              objc::send<"setImageAlpha:">(preview.theme(), next_value());
                                              preview.show();
                                          }});
    std::vector<double> costs(coloured.begin(), coloured.end());
    costs.insert(costs.end(), slid.begin(), slid.end());
    return costs;
}

}  // namespace

void measure_pane(std::vector<Ratio>& ratios) {
    constexpr int runs = 7;
    std::vector<double> first_of_few, first_of_many, again_of_few, again_of_many;
    for (int i = 0; i < runs; ++i) {
        const auto of_few = in_child(2, [] { return openings(few); });
        const auto of_many = in_child(2, [] { return openings(many); });
        first_of_few.push_back(of_few[0]);
        again_of_few.push_back(of_few[1]);
        first_of_many.push_back(of_many[0]);
        again_of_many.push_back(of_many[1]);
    }
    constexpr double farthest_apart = 1.5, twice = 2;
    ratios.push_back({.what = "opening the pane with 1000 themes",
                      .against = "opening it with 10",
                      .limit = farthest_apart,
                      .cost = undisturbed(first_of_many),
                      .cost_against = undisturbed(first_of_few)});
    ratios.push_back({.what = "  opening it again",
                      .against = "opening it again with 10",
                      .limit = farthest_apart,
                      .cost = undisturbed(again_of_many),
                      .cost_against = undisturbed(again_of_few)});
    const auto costs = in_child(4, changes);
    ratios.push_back({.what = "a colour in the pane's editor",
                      .against = "the library's preview of it alone",
                      .limit = twice,
                      .cost = costs[0],
                      .cost_against = costs[1]});
    ratios.push_back({.what = "an image's alpha in the pane's editor",
                      .against = "the library's preview of it alone",
                      .limit = twice,
                      .cost = costs[2],
                      .cost_against = costs[3]});
}

}  // namespace bench
