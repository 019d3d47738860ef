// refused: type 'objc::Handed<double ()>' does not provide a call operator
#include "objc/handed.h"

double ask(objc::Handed<double()> function) {
#ifdef CORRECTED
    return objc::take_back(function)();
#else
    return function();
#endif
}
