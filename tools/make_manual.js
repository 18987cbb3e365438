// The pages of the manual, as the site has them: `node tools/make_manual.js FOLDER PAGE.md...` writes each as FOLDER/PAGE.html.

import { readFileSync, writeFileSync } from 'node:fs';
import { basename, join } from 'node:path';
import { Marked } from 'marked';

const style = `body { max-width: 40em; margin: 0 auto; padding: 16px; font: 16px/1.5 sans-serif; color: #212121; }
h1, h2, h3 { line-height: 1.2; }
table { display: block; overflow-x: auto; border-collapse: collapse; }
th, td { padding: 4px 8px; border-bottom: 1px solid #cfd8dc; text-align: start; vertical-align: top; }
code { overflow-wrap: anywhere; }
a { color: #0b57d0; }`;

const marked = new Marked({
    renderer: {
        heading({ tokens, depth, text }) {
            const id = text
                .toLowerCase()
                .replace(/[^\w ]/g, '')
                .replaceAll(' ', '-');
            return `<h${depth} id="${id}">${this.parser.parseInline(tokens)}</h${depth}>\n`;
        },
        link({ href, tokens }) {
            const text = this.parser.parseInline(tokens).replace(/\.md$/, '');
            return `<a href="${href.replace(/\.md$/, '.html')}">${text}</a>`;
        },
        // Pictures would be as large as the program.
        html: () => '',
    },
});

/** @param {string} file */
const readPage = (file) => {
    const text = readFileSync(file, 'utf8');
    return { name: `${basename(file, '.md')}.html`, title: /^# (.*)/.exec(text)?.[1] ?? '', text };
};

const [folder = '', ...files] = process.argv.slice(2);
const pages = files.map(readPage);
const links = pages
    .map(({ name, title }) => `<a href="${name}">${title.replace('Odoledger: ', '')}</a>`)
    .join(' &middot; ');
for (const { name, title, text } of pages)
    writeFileSync(
        join(folder, name),
        `<!doctype html>
<html lang="en">
<meta charset="utf-8">
<meta name="viewport" content="width=device-width, initial-scale=1">
<title>${title}</title>
<link rel="icon" href="../icons/icon-192.png" type="image/png">
<style>${style}</style>
<nav>${links}</nav>
${marked.parse(text)}</html>
`,
    );
