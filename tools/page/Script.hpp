#pragma once

#include <string_view>

namespace quorin::page {

/// Searches the trees, and goes from finding to finding with the keys j and k. The page has all of its content without.
inline constexpr std::string_view script = R"('use strict';
for (const item of document.querySelectorAll('[hidden]')) item.hidden = false;
for (const input of document.querySelectorAll('input[type=search]')) {
  const tree = document.getElementById(input.getAttribute('aria-controls'));
  const told = document.getElementById(input.getAttribute('aria-describedby'));
  const leaves = [...tree.querySelectorAll('li')].filter(item => !item.querySelector('li'));
  const texts = leaves.map(leaf => {
    let text = leaf.textContent;
    for (let item = leaf.parentElement; item && item !== tree; item = item.parentElement)
      if (item.tagName === 'DETAILS') text = item.firstElementChild.textContent + '.' + text;
    return text.toLowerCase();
  });
  input.addEventListener('input', () => {
    const wanted = input.value.trim().toLowerCase();
    for (const item of tree.querySelectorAll('li')) item.hidden = wanted !== '';
    let found = 0;
    texts.forEach((text, i) => {
      if (!text.includes(wanted)) return;
      ++found;
      for (let item = leaves[i]; item && item !== tree; item = item.parentElement) {
        item.hidden = false;
        if (wanted !== '' && item.tagName === 'DETAILS') item.open = true;
      }
    });
    told.textContent = wanted === '' ? '' : found === 0 ? 'nothing found' : found + ' found';
  });
}
const links = [...document.querySelectorAll('.findings a')];
let current = -1;
links.forEach((link, i) => link.addEventListener('click', () => {
  links[current]?.removeAttribute('aria-current');
  link.setAttribute('aria-current', 'true');
  current = i;
}));
document.addEventListener('keydown', event => {
  if (event.ctrlKey || event.metaKey || event.altKey || event.target.tagName === 'INPUT') return;
  const step = { j: 1, k: -1 }[event.key];
  if (!step || links.length === 0) return;
  const next = links[Math.min(Math.max(current + step, 0), links.length - 1)];
  next.focus();
  next.click();
});
)";

}  // namespace quorin::page
