// The plain product scheme lives with the plain eliminations.
#include "linear/reference.h"
