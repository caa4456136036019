#include <unistd.h>

// Accepts the arguments of a report host and never listens. Exits after a timeout if it is not killed.
int main() { return ::sleep(120) == 0 ? 0 : 1; }
