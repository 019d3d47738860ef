#include "model/config_error.h"

namespace config_error {

using namespace objc::literals;

NSError* make(const Texts& texts) {
    const id keys[] = {NSLocalizedDescriptionKey, NSLocalizedFailureReasonErrorKey,
                       NSLocalizedRecoverySuggestionErrorKey};
    const id values[] = {NSString::stringWithUTF8String(texts.description),
                         NSString::stringWithUTF8String(texts.reason),
                         NSString::stringWithUTF8String(texts.suggestion)};
    return NSError::errorWithDomain("HuecraftConfigDomain"_ns, -1,
                                    NSDictionary::dictionaryWithObjects(values, keys, 3));
}

}  // namespace config_error
