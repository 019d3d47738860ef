// Photographs in the editor: chosen, cropped by fingers, dimmed, blurred, and shown through.
#include "editor/editor_page.h"
#include "platform/sharing.h"

namespace test {
namespace {

class EditorWithPhotos : public EditorPage {
  protected:
    /// Puts a picture of that size into the phone's photo library; called before or after boot.
    void put_photo(const std::string& name, std::string_view bytes) const {
        phone.write("/var/mobile/Media/DCIM/100APPLE/" + name, bytes);
    }
    static std::string png(UIColor* colour, double width, double height) {
        NSData* data = UIImagePNGRepresentation(filled_image(colour, width, height));
        return {static_cast<const char*>(data->bytes()), data->length()};
    }
    /// Opens the editor with the kind "Image", and the picker.
    void open_picker() {
        choose_kind(image_kind);
        choose_row(1, background_section);
    }
    /// Opens the page on which the photo is cropped.
    void open_cropper(const std::string& name = "photo.png") {
        open_picker();
        tap(name);
        ASSERT_TRUE(is_on_screen("Crop"));
    }
    static CGRect photo_frame() {
        return static_cast<UIView*>(photo_window()->subviews()->objectAtIndex(0))->frame();
    }
};

TEST_F(EditorWithPhotos, APhotoIsBroughtToTheKeyboardsPixels) {
    edit(0, own_section, {.screen_width = 414, .screen_height = 736, .screen_scale = 3});
    put_photo("photo.png", png(color(0.2, 0.4, 0.6), 3000, 2000));
    open_cropper();
    tap("Use Photo");
    EXPECT_EQ(table()->numberOfRowsInSection(background_section), 4) << "choosing, cropping, the alpha";
    tap("Save");
    ASSERT_NE(stored(), nullptr);
    EXPECT_EQ(stored()->size().width, 1242);
    EXPECT_LE(stored()->size().height, 798);
    EXPECT_EQ(value("_BackgroundType"), "3");
}

TEST_F(EditorWithPhotos, TheOddOnesFillTheKeyboardToo) {
    edit();
    put_photo("huge.png", png(color(1, 0, 0), 8000, 6000));
    put_photo("one.png", png(color(0, 1, 0), 1, 1));
    choose_kind(image_kind);
    for (const char* name : {"huge.png", "one.png"}) {
        choose_row(1, background_section);
        tap(name);
        tap("Use Photo");
    }
    tap("Save");
    ASSERT_NE(stored(), nullptr);
    EXPECT_EQ(stored()->size().width, 750);
}

TEST_F(EditorWithPhotos, AFileIsPreferredToAnImageAndAnImageToNone) {
    edit();
    put_photo("photo.png", png(color(0.2, 0.4, 0.6), 300, 200));
    for (const auto& [file, width] : {std::pair{"photo.png", 300.0}, {"gone.png", 40.0}}) {
        open_picker();
        void* picker = nullptr;
        ASSERT_EQ(sim_presented(&picker), SIM_OK);
        const id keys[] = {UIImagePickerControllerImageURL, UIImagePickerControllerOriginalImage};
        const id values[] = {
            NSURL::fileURLWithPath(text("/var/mobile/Media/DCIM/100APPLE/" + std::string(file))),
            filled_image(color(1, 0, 0), 40, 30)};
        auto* editor = static_cast<UIImagePickerController*>(static_cast<id>(picker))->delegate();
        static_cast<NSObject*>(editor)->send<"imagePickerController:didFinishPickingMediaWithInfo:">(
            static_cast<id>(picker), NSDictionary::dictionaryWithObjects(values, keys, 2));
        ASSERT_EQ(sim_advance_clock(1), SIM_OK) << sim_last_error();
        auto* shown = static_cast<UIImageView*>(
            static_cast<id>(static_cast<UIView*>(photo_window()->subviews()->objectAtIndex(0))));
        EXPECT_EQ(shown->image()->size().width, width);
        tap("Cancel");
    }
}

TEST_F(EditorWithPhotos, OneThatDoesNotDecodeIsSaidSo) {
    put_photo("broken.png", "\x89PNG but no further");
    edit();
    open_picker();
    tap("broken.png");
    EXPECT_TRUE(is_on_screen("This photo cannot be read."));
    tap("OK");
    EXPECT_TRUE(is_on_screen("Mine"));
    tap("Undo");
    tap("Cancel");
    EXPECT_FALSE(is_open()) << "nothing was changed";
}

TEST_F(EditorWithPhotos, ThePickerCanBeCancelled) {
    edit();
    open_picker();
    EXPECT_TRUE(is_on_screen("Photos")) << "no photo, no folder";
    tap("Cancel");
    EXPECT_TRUE(is_on_screen("Mine"));
    EXPECT_EQ(table()->numberOfRowsInSection(background_section), 2);
}

TEST_F(EditorWithPhotos, CroppingCanBeCancelled) {
    edit();
    put_photo("photo.png", png(color(0.2, 0.4, 0.6), 300, 200));
    open_cropper();
    tap("Cancel");
    tap("Save");
    EXPECT_EQ(stored(), nullptr);
}

TEST_F(EditorWithPhotos, AThemeWithoutAPhotoHasNothingToCrop) {
    edit();
    choose_kind(image_kind);
    EXPECT_EQ(table()->numberOfRowsInSection(background_section), 2);
    tap("Save");
    EXPECT_EQ(value("_BackgroundType"), "3");
}

TEST_F(EditorWithPhotos, AFingerMovesThePhotoAndStopsAtItsEdges) {
    edit();
    put_photo("photo.png", png(color(0.2, 0.4, 0.6), 400, 100));
    open_cropper();
    const CGRect before = photo_frame();
    const CGSize window = photo_window()->bounds().size;
    EXPECT_NEAR(before.size.height, window.height, 0.01);
    EXPECT_NEAR(before.origin.x, (window.width - before.size.width) / 2, 0.01);
    const auto drag = [](double from, double to) {
        ASSERT_EQ(sim_touch(SIM_TOUCH_BEGAN, from, 150), SIM_OK);
        for (int step = 1; step <= 4; ++step)
            ASSERT_EQ(sim_touch(SIM_TOUCH_MOVED, from + (to - from) * step / 4, 150), SIM_OK);
        ASSERT_EQ(sim_touch(SIM_TOUCH_ENDED, to, 150), SIM_OK);
    };
    drag(100, 160);
    EXPECT_GT(photo_frame().origin.x, before.origin.x + 30);
    drag(40, 370);
    drag(40, 370);
    EXPECT_NEAR(photo_frame().origin.x, 0, 0.01) << "no edge comes into the window";
}

TEST_F(EditorWithPhotos, TwoFingersEnlargeThePhoto) {
    edit();
    put_photo("photo.png", png(color(0.2, 0.4, 0.6), 400, 300));
    open_cropper();
    const CGRect before = photo_frame();
    ASSERT_EQ(sim_touch_two(SIM_TOUCH_BEGAN, 150, 150, 200, 150), SIM_OK);
    ASSERT_EQ(sim_touch_two(SIM_TOUCH_MOVED, 140, 150, 210, 150), SIM_OK);
    ASSERT_EQ(sim_touch_two(SIM_TOUCH_MOVED, 125, 150, 225, 150), SIM_OK);
    ASSERT_EQ(sim_touch_two(SIM_TOUCH_ENDED, 125, 150, 225, 150), SIM_OK);
    EXPECT_GT(photo_frame().size.width, before.size.width * 1.3);
    auto* slider = static_cast<UISlider*>(static_cast<id>(first("UISlider")));
    EXPECT_GT(slider->value(), 1.3f) << "the slider follows";
    slider->setValue(1);
    slider->sendActionsForControlEvents(UIControlEventValueChanged);
    EXPECT_NEAR(photo_frame().size.width, before.size.width, 0.01);
}

TEST_F(EditorWithPhotos, IsDimmedAndBlurredOnWish) {
    edit();
    put_photo("photo.png", png(color(1, 1, 1), 400, 300));
    open_cropper();
    turn_on("Dim");
    turn_on("Blur");
    tap("Use Photo");
    tap("Save");
    ASSERT_NE(stored(), nullptr);
    UIGraphicsBeginImageContextWithOptions({1, 1}, true, 1);
    stored()->drawAtPoint({-100, -100});
    const UIColor* mean = objc::send<"averageColorForImage:", UIColor*>(
        class_named("HCCITool"), UIGraphicsGetImageFromCurrentImageContext());
    UIGraphicsEndImageContext();
    EXPECT_NEAR(rgba(reinterpret_cast<id>(const_cast<UIColor*>(mean))).red, 0.6, 0.02);
}

TEST_F(EditorWithPhotos, ASliderSetsTheAlphaAsOneChange) {
    edit();
    put_photo("photo.png", png(color(0.2, 0.4, 0.6), 400, 300));
    open_cropper();
    tap("Use Photo");
    UIView* page = cell(3, background_section)->contentView();
    auto* slider = static_cast<UISlider*>(static_cast<id>(page->subviews()->lastObject()));
    for (float alpha : {0.9f, 0.7f, 0.5f}) {
        slider->setValue(alpha);
        slider->sendActionsForControlEvents(UIControlEventValueChanged);
        EXPECT_EQ(static_cast<UISlider*>(
                      static_cast<id>(cell(3, background_section)->contentView()->subviews()->lastObject())),
                  slider)
            << "it is not exchanged under the finger";
    }
    slider->sendActionsForControlEvents(UIControlEventTouchUpInside);
    UIView* sample = static_cast<UIView*>(page->subviews()->objectAtIndex(0));
    EXPECT_STREQ(object_getClassName(static_cast<NSObject*>(sample->subviews()->lastObject())),
                 "HCImageView");
    tap("Undo");
    EXPECT_EQ(slider->value(), 1.0f) << "one step back is before the slider was touched";
    tap("Redo");
    tap("Save");
    EXPECT_EQ(value("_ImageAlpha"), "0.5");
}

TEST_F(EditorWithPhotos, CanBeCroppedAgainAfterAMemoryWarning) {
    edit();
    put_photo("photo.png", png(color(0.2, 0.4, 0.6), 400, 300));
    open_cropper();
    ASSERT_EQ(sim_warn_of_memory(), SIM_OK);
    tap("Use Photo");
    ASSERT_EQ(sim_warn_of_memory(), SIM_OK);
    choose_row(2, background_section);
    EXPECT_TRUE(is_on_screen("Crop"));
    tap("Use Photo");
    tap("Save");
    EXPECT_NE(stored(), nullptr);
}

}  // namespace
}  // namespace test
