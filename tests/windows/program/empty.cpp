/// Does nothing: what the start of any program costs.

int wmain() {
    return 0;
}
