#pragma once

/// Gives every test a home, configuration and state folder of its own in a temporary folder, and the same locale
/// everywhere. Call it once, before the tests run.
void isolateTests();
