// What the tests ask of an open page; each function yields what is wrong, in words.
const inspection = {
  describe(element) {
    return element.tagName.toLowerCase() + (element.className ? '.' + element.className : '') + ': '
      + element.textContent.trim().slice(0, 60);
  },

  isShown(element) {
    return element.checkVisibility({ visibilityProperty: true, opacityProperty: true });
  },

  ownText(element) {
    return [...element.childNodes].filter(node => node.nodeType === Node.TEXT_NODE).map(node => node.data).join('').trim();
  },

  // Of a colour as it was computed: red, green, blue from 0 to 255, and how much it covers.
  channels(colour) {
    const numbers = colour.match(/[\d.]+/g).map(Number);
    if (!/^rgba?\(/.test(colour)) throw new Error('a colour of another form: ' + colour);
    return [...numbers, 1].slice(0, 4);
  },

  background(element) {
    const layers = [];
    for (let at = element; at; at = at.parentElement) {
      const layer = this.channels(getComputedStyle(at).backgroundColor);
      if (layer[3] > 0) layers.push(layer);
      if (layer[3] === 1) break;
    }
    return layers.reduceRight((below, above) => below.map((one, i) => above[i] * above[3] + one * (1 - above[3])),
                              [255, 255, 255]);
  },

  luminance(colour) {
    const [red, green, blue] = colour.map(c => c / 255).map(c => (c <= 0.04045 ? c / 12.92 : ((c + 0.055) / 1.055) ** 2.4));
    return 0.2126 * red + 0.7152 * green + 0.0722 * blue;
  },

  // WCAG 2.2, "contrast ratio".
  contrast(one, other) {
    const [light, dark] = [this.luminance(one), this.luminance(other)].sort((a, b) => b - a);
    return (light + 0.05) / (dark + 0.05);
  },

  faintTexts(least) {
    const faint = [];
    const judge = (element, style) => {
      const ratio = this.contrast(this.channels(style.color).slice(0, 3), this.background(element));
      if (ratio < least) faint.push(ratio.toFixed(2) + ' ' + this.describe(element));
    };
    let judged = 0;
    for (const element of document.body.querySelectorAll('*')) {
      if (!this.isShown(element) || ['SCRIPT', 'STYLE'].includes(element.tagName)) continue;
      const before = getComputedStyle(element, '::before');
      if (!['none', 'normal'].includes(before.content)) judge(element, before);
      if (!this.ownText(element) && element.tagName !== 'INPUT') continue;
      judge(element, getComputedStyle(element));
      ++judged;
    }
    return [judged, faint];
  },

  moving() {
    return [...document.querySelectorAll('*')].filter(element => {
      const style = getComputedStyle(element);
      return style.animationName !== 'none' || style.transitionDuration !== '0s' || style.scrollBehavior !== 'auto';
    }).map(element => this.describe(element));
  },

  // What reaches beyond the right edge of the window, but for what stands in a box that scrolls by itself.
  wide() {
    const beyond = [...document.body.querySelectorAll('*')].filter(element => this.isShown(element)
      && !element.closest('.skip, .scroll > *, .text > *, .tree > *') && element.getBoundingClientRect().right > innerWidth + 0.5);
    const page = document.documentElement;
    const scrolls = page.scrollWidth > innerWidth ? ['the page: ' + page.scrollWidth] : [];
    return [...scrolls, ...beyond.map(element => this.describe(element))];
  },

  // What the keyboard stops at, in order.
  stops() {
    return [...document.querySelectorAll('a[href], input, summary, [tabindex="0"]')].filter(one => this.isShown(one));
  },

  // Why who looks at the page does not see that the focus is there.
  unseenFocus() {
    const element = document.activeElement;
    const style = getComputedStyle(element);
    if (style.outlineStyle === 'none' || parseFloat(style.outlineWidth) < 2) return 'no outline: ' + this.describe(element);
    const box = element.getClientRects()[0];
    const [left, right] = [Math.max(box.left, 0), Math.min(box.right, innerWidth)];
    const [top, bottom] = [Math.max(box.top, 0), Math.min(box.bottom, innerHeight)];
    const there = document.elementFromPoint((left + right) / 2, (top + bottom) / 2);
    return there && (element.contains(there) || there.contains(element)) ? '' : 'covered: ' + this.describe(element);
  },

  openAll() {
    for (const one of document.querySelectorAll('details')) one.open = true;
  },
};
