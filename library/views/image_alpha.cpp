#include "views/image_alpha.h"

#include "platform/owned_graphics.h"

UIImage* image_with_alpha(UIImage* image, CGFloat alpha) {
    const CGSize size = image->size();
    const cg::ImageContext context(size);
    CGContextScaleCTM(context, 1.0, -1.0);
    CGContextTranslateCTM(context, 0, -size.height);
    CGContextSetBlendMode(context, kCGBlendModeMultiply);
    CGContextSetAlpha(context, alpha);
    CGContextDrawImage(context, {{0, 0}, size}, image->CGImage());
    return context.image();
}
