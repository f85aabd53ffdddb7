// What a precompiled header is made with: it needs a target, and a target a source.
