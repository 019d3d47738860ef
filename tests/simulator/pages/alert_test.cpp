// Alerts, action sheets, popovers, the share sheet and the photo picker.
#include "page_test.h"

namespace test {
namespace {

using objc::strong;

class Alerts : public Pages {
  protected:
    void show_page() {
        root = page("Page");
        present(root);
    }
    UIAlertController* alert(UIAlertControllerStyle style) {
        return UIAlertController::alertController(text("Title"), text("Message"), style);
    }
    static UIAlertAction* choice(const char* title, UIAlertActionStyle style = UIAlertActionStyleDefault) {
        return UIAlertAction::action(
            text(title), style, objc::Block([](id action) {
                heard().push_back(utf8(static_cast<UIAlertAction*>(action)->title()));
            }));
    }
    strong<UIViewController> root;
};

TEST_F(Alerts, AChoiceIsPerformedOnceTheAlertHasGone) {
    show_page();
    UIAlertController* shown = alert(UIAlertControllerStyleAlert);
    shown->addAction(choice("Cancel", UIAlertActionStyleCancel));
    static UIViewController* presenter;
    presenter = root;
    shown->addAction(UIAlertAction::action(
        text("Delete"), UIAlertActionStyleDestructive, objc::Block([](id) {
            heard().push_back(presenter->presentedViewController() ? "still there" : "gone");
        })));
    root->presentViewController(shown, true, nullptr);
    EXPECT_NE(root->view()->window(), nullptr);
    EXPECT_EQ(sim_tap_label("Page"), SIM_NOT_FOUND);
    tap_label("Delete");
    EXPECT_EQ(just_heard(), Heard{"gone"});
}

TEST_F(Alerts, OneThatIsNotEnabledCannotBeChosen) {
    show_page();
    UIAlertController* shown = alert(UIAlertControllerStyleAlert);
    UIAlertAction* save = choice("Save");
    save->setEnabled(false);
    shown->addAction(save);
    root->presentViewController(shown, true, nullptr);
    tap_label("Save");
    EXPECT_EQ(just_heard(), Heard{});
    save->setEnabled(true);
    tap_label("Save");
    EXPECT_EQ(just_heard(), Heard{"Save"});
}

TEST_F(Alerts, TextIsTypedIntoTheirFields) {
    show_page();
    UIAlertController* shown = alert(UIAlertControllerStyleAlert);
    shown->addTextField(
        objc::Block([](id field) { static_cast<UITextField*>(field)->setText(text("Mid")); }));
    shown->addAction(choice("OK"));
    root->presentViewController(shown, true, nullptr);
    ASSERT_EQ(sim_type_text("night"), SIM_OK) << sim_last_error();
    tap_label("OK");
    EXPECT_EQ(utf8(static_cast<UITextField*>(shown->textFields()->objectAtIndex(0))->text()), "Midnight");
    EXPECT_EQ(just_heard(), Heard{"OK"});
}

TEST_F(Alerts, ASheetHasNoFieldsAndAnAlertOneCancel) {
    UIAlertController* sheet = alert(UIAlertControllerStyleActionSheet);
    EXPECT_EQ(raised_by([&] { sheet->addTextField(nullptr); }), "NSInternalInconsistencyException");
    sheet->addAction(choice("Cancel", UIAlertActionStyleCancel));
    EXPECT_EQ(raised_by([&] { sheet->addAction(choice("No", UIAlertActionStyleCancel)); }),
              "NSInternalInconsistencyException");
    EXPECT_EQ(sheet->textFields(), nullptr);
}

TEST_F(Alerts, ASheetsChoicesAndItsCancelCanBeTouched) {
    show_page();
    for (const char* wanted : {"Duplicate", "Cancel"}) {
        UIAlertController* sheet = alert(UIAlertControllerStyleActionSheet);
        sheet->addAction(choice("Duplicate"));
        sheet->addAction(choice("Cancel", UIAlertActionStyleCancel));
        root->presentViewController(sheet, true, nullptr);
        tap_label(wanted);
        EXPECT_EQ(just_heard(), Heard{wanted});
    }
}

class PadAlerts : public Alerts {
  protected:
    void SetUp() override { start({.screen_width = 768, .screen_height = 1024}); }
};

TEST_F(PadAlerts, ASheetNeedsAPlaceThatItComesFrom) {
    show_page();
    UIAlertController* sheet = alert(UIAlertControllerStyleActionSheet);
    sheet->addAction(choice("Duplicate"));
    EXPECT_EQ(raised_by([&] { root->presentViewController(sheet, true, nullptr); }), "NSGenericException");
}

TEST_F(PadAlerts, ASheetStandsBesideItsSource) {
    show_page();
    UIAlertController* sheet = alert(UIAlertControllerStyleActionSheet);
    sheet->addAction(choice("Duplicate"));
    sheet->popoverPresentationController()->setSourceView(root->view());
    sheet->popoverPresentationController()->setSourceRect({{600, 100}, {40, 40}});
    root->presentViewController(sheet, true, nullptr);
    const CGRect frame = sheet->view()->frame();
    EXPECT_EQ(frame.origin.y, 150);
    EXPECT_EQ(frame.size.width, 300);
    tap_label("Duplicate");
    EXPECT_EQ(just_heard(), Heard{"Duplicate"});
    EXPECT_EQ(root->presentedViewController(), nullptr);
}

TEST_F(PadAlerts, AFormSheetStandsInTheMiddle) {
    show_page();
    auto form = page("Form");
    form->setModalPresentationStyle(UIModalPresentationFormSheet);
    root->presentViewController(form, true, nullptr);
    EXPECT_EQ(form->view()->frame(), (CGRect{{114, 202}, {540, 620}}));
    EXPECT_NE(root->view()->window(), nullptr);
    form->dismissViewController(true, nullptr);
    EXPECT_EQ(form->view()->window(), nullptr);
}

TEST_F(Alerts, APopoverOnAPhoneCoversThePage) {
    show_page();
    auto other = page("Other");
    other->setModalPresentationStyle(UIModalPresentationPopover);
    root->presentViewController(other, true, nullptr);
    EXPECT_EQ(root->view()->window(), nullptr);
}

TEST_F(Alerts, WhatIsSharedIsNoted) {
    show_page();
    auto share = [&](const char* button) {
        auto sheet = UIActivityViewController::alloc()->initWithActivityItems(
            array({text("a text"), NSURL::fileURLWithPath(text("/var/mobile/Night.plist")),
                   filled_image(color(1, 0, 0), 20, 30)}),
            nullptr);
        sheet->setCompletionWithItemsHandler(objc::Block([](id type, bool done, id, id) {
            heard().push_back(type ? "an activity" : "none");
            heard().push_back(done ? "done" : "not done");
        }));
        root->presentViewController(sheet, true, nullptr);
        tap_label(button);
    };
    share("Cancel");
    EXPECT_EQ(just_heard(), (Heard{"none", "not done"}));
    EXPECT_EQ(sim_shared_item_count(), 0u);
    share("Share");
    EXPECT_EQ(just_heard(), (Heard{"an activity", "done"}));
    Heard items;
    for (size_t i = 0; i < sim_shared_item_count(); ++i) {
        sim_shared_item item;
        ASSERT_EQ(sim_shared_item_at(i, &item), SIM_OK);
        items.push_back(std::string(item.kind) + " " + item.content);
    }
    EXPECT_EQ(items, (Heard{"text a text", "file /var/mobile/Night.plist", "image 20 x 30"}));
    sim_shared_item item;
    EXPECT_EQ(sim_shared_item_at(3, &item), SIM_NOT_FOUND);
}

TEST_F(Alerts, AShareSheetIsNamedAfterAFirstFileAndElseSaysHowMuchThereIs) {
    show_page();
    const auto title_for = [this](NSArray* items) {
        auto sheet = UIActivityViewController::alloc()->initWithActivityItems(items, nullptr);
        root->presentViewController(sheet, false, nullptr);
        auto* parts = static_cast<UIView*>(sheet->view()->subviews()->objectAtIndex(0))->subviews();
        const std::string title = utf8(as<UILabel>(parts->objectAtIndex(0))->text());
        root->dismissViewController(false, nullptr);
        return title;
    };
    NSURL* file = NSURL::fileURLWithPath(text("/var/mobile/Night.plist"));
    EXPECT_EQ(title_for(array({file})), "Night.plist");
    EXPECT_EQ(title_for(array({file, text("a text")})), "Night.plist");
    EXPECT_EQ(title_for(array({text("a text"), file})), "2 items");
    EXPECT_EQ(title_for(array({text("a text")})), "1 item");
    EXPECT_EQ(title_for(array({})), "0 items");
}

class Picker : public Alerts {
  protected:
    strong<NSObject> delegate() {
        return object_of(
            "PickerDelegate", "NSObject",
            {method(
                 "imagePickerController:didFinishPickingMediaWithInfo:", "v@:@@",
                 [](id, SEL, id picker, id info) {
                     auto* found = static_cast<NSDictionary*>(info);
                     auto* image =
                         static_cast<UIImage*>(found->objectForKey(UIImagePickerControllerOriginalImage));
                     heard().push_back(image
                                           ? "width " + std::to_string(static_cast<int>(image->size().width))
                                           : "no image");
                     heard().push_back(utf8(
                         static_cast<NSURL*>(found->objectForKey(UIImagePickerControllerImageURL))->path()));
                     static_cast<UIViewController*>(picker)->dismissViewController(true, nullptr);
                 }),
             method("imagePickerControllerDidCancel:", "v@:@", [](id, SEL, id picker) {
                 heard().push_back("cancelled");
                 static_cast<UIViewController*>(picker)->dismissViewController(true, nullptr);
             })});
    }
    void open() {
        show_page();
        auto picker = UIImagePickerController::make();
        kept = delegate();
        picker->setDelegate(kept);
        root->presentViewController(picker, true, nullptr);
    }
    strong<NSObject> kept;
};

TEST_F(Picker, HandsOverThePictureThatIsTouched) {
    NSData* png = UIImagePNGRepresentation(filled_image(color(0, 1, 0), 12, 8));
    phone.write("/var/mobile/Media/DCIM/100APPLE/IMG_0001.PNG",
                {static_cast<const char*>(png->bytes()), png->length()});
    phone.write("/var/mobile/Media/DCIM/100APPLE/IMG_0002.PNG", "no picture");
    open();
    tap_label("IMG_0001.PNG");
    EXPECT_EQ(just_heard(), (Heard{"width 12", "/var/mobile/Media/DCIM/100APPLE/IMG_0001.PNG"}));
    EXPECT_EQ(root->presentedViewController(), nullptr);
}

TEST_F(Picker, HandsOverNoImageWhereTheFileDoesNotDecode) {
    phone.write("/var/mobile/Media/DCIM/100APPLE/IMG_0002.PNG", "no picture");
    open();
    tap_label("IMG_0002.PNG");
    EXPECT_EQ(just_heard(), (Heard{"no image", "/var/mobile/Media/DCIM/100APPLE/IMG_0002.PNG"}));
}

TEST_F(Picker, CanBeCancelled) {
    open();
    tap_label("Cancel");
    EXPECT_EQ(just_heard(), Heard{"cancelled"});
}

TEST_F(Picker, HasALibraryAndNoCamera) {
    EXPECT_TRUE(
        UIImagePickerController::isSourceTypeAvailable(UIImagePickerControllerSourceTypePhotoLibrary));
    EXPECT_FALSE(UIImagePickerController::isSourceTypeAvailable(UIImagePickerControllerSourceTypeCamera));
    auto picker = UIImagePickerController::make();
    EXPECT_EQ(raised_by([&] { picker->setSourceType(UIImagePickerControllerSourceTypeCamera); }),
              "NSInvalidArgumentException");
}

}  // namespace
}  // namespace test
