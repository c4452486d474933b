#include <stdio.h>

int main(void) { return puts("qvlog 0.0.0") < 0; }
