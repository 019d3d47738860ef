// Alphas that are baked into images, instead of being applied whenever the image is shown.
#include "views/image_alpha.h"

UIImage* image_with_alpha(UIImage* image, CGFloat alpha) {
    const CGSize size = image->size();
    UIGraphicsBeginImageContextWithOptions(size, false, 0.0);
    CGContextRef context = UIGraphicsGetCurrentContext();
    CGContextScaleCTM(context, 1.0, -1.0);
    CGContextTranslateCTM(context, 0, -size.height);
    CGContextSetBlendMode(context, kCGBlendModeMultiply);
    CGContextSetAlpha(context, alpha);
    CGContextDrawImage(context, {{0, 0}, size}, image->CGImage());
    UIImage* result = UIGraphicsGetImageFromCurrentImageContext();
    UIGraphicsEndImageContext();
    return result;
}
