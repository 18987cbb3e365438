import js from '@eslint/js';

// What a name means is for the type checker, which knows of what runs where; this looks for mistakes that it lets pass.
export default [
    { ignores: ['build/', 'node_modules/'] },
    js.configs.recommended,
    {
        languageOptions: { ecmaVersion: 2022, sourceType: 'module' },
        linterOptions: { reportUnusedDisableDirectives: 'error' },
        rules: {
            eqeqeq: 'error',
            'no-undef': 'off',
            'no-var': 'error',
            'no-shadow': 'error',
            'no-unused-expressions': 'error',
            'object-shorthand': 'error',
            'prefer-arrow-callback': 'error',
            'no-misleading-character-class': ['error', { allowEscape: true }],
            'prefer-const': ['error', { ignoreReadBeforeAssign: true }],
            'prefer-template': 'error',
        },
    },
    // Emscripten's libraries are read by a parser that is older, and printed as they stand.
    { files: ['**/*_library.js'], rules: { 'object-shorthand': 'off' } },
];
