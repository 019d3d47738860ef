#include "view_in_words.h"

#include <sstream>

#include "least_backdrop.h"
#include "support/phone.h"

namespace bench {

namespace {

class Words {
  public:
    explicit Words(UIView* view) { tell(view, 0); }
    std::string all() const { return all_.str(); }

  private:
    void tell(UIView* view, int depth) {
        line(depth, view);
        rectangle(view->frame());
        rectangle(view->bounds());
        colour(view->backgroundColor() ? view->backgroundColor()->CGColor() : nullptr);
        all_ << " alpha " << view->alpha() << " opaque " << view->isOpaque() << " hidden " << view->isHidden()
             << " clips " << view->clipsToBounds() << " follows " << view->autoresizingMask() << " mode "
             << view->contentMode() << " touches " << view->isUserInteractionEnabled();
        NSArray* subviews = view->subviews();
        tell(view->layer(), depth + 1);
        for (NSUInteger i = 0; i < subviews->count(); ++i)
            tell(static_cast<UIView*>(subviews->objectAtIndex(i)), depth + 1);
    }

    void tell(CALayer* layer, int depth) {
        line(depth, layer);
        rectangle(layer->frame());
        colour(layer->backgroundColor());
        all_ << " rasterised " << layer->shouldRasterize() << " at " << layer->rasterizationScale()
             << " opacity " << layer->opacity();
        actions(layer->actions());
        if (auto* gradient = as<CAGradientLayer>(layer)) {
            const CGPoint start = gradient->startPoint(), end = gradient->endPoint();
            all_ << " from " << start.x << "," << start.y << " to " << end.x << "," << end.y;
            NSArray* colours = gradient->colors();
            for (NSUInteger i = 0; i < colours->count(); ++i)
                colour(reinterpret_cast<CGColorRef>(colours->objectAtIndex(i)));
        }
        NSArray* sublayers = layer->sublayers();
        for (NSUInteger i = 0; i < sublayers->count(); ++i)
            tell(static_cast<CALayer*>(sublayers->objectAtIndex(i)), depth + 1);
    }

    void line(int depth, id object) {
        std::string name = object_getClassName(object);
        if (name.starts_with(least_prefix)) name.replace(0, std::string(least_prefix).size(), "_UIBackdrop");
        all_ << '\n' << std::string(static_cast<size_t>(depth), ' ') << name;
    }
    void rectangle(CGRect frame) {
        all_ << " [" << frame.origin.x << " " << frame.origin.y << " " << frame.size.width << " "
             << frame.size.height << "]";
    }
    void colour(CGColorRef colour) {
        all_ << " (";
        const CGFloat* components = CGColorGetComponents(colour);
        for (size_t i = 0; i < CGColorGetNumberOfComponents(colour); ++i) all_ << components[i] << " ";
        all_ << "of model " << CGColorSpaceGetModel(CGColorGetColorSpace(colour)) << ")";
    }
    /// The keys of those that are switched off, among those that keyboards have.
    void actions(NSDictionary* actions) {
        if (!actions) return;
        all_ << " without";
        for (const char* key :
             {"onOrderIn", "onOrderOut", "sublayers", "contents", "bounds", "onLayout", "position"})
            if (actions->objectForKey(test::text(key)) == NSNull::null()) all_ << " " << key;
    }

    std::ostringstream all_;
};

}  // namespace

std::string in_words(UIView* view) { return Words(view).all(); }

}  // namespace bench
