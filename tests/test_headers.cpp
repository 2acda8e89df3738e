// Carries the precompiled header that all test programs share; there is nothing else in it.
