#include "pairing/searchbudget.h"

namespace
{

const double work_between_questions = 1e6;

}

SearchBudget::SearchBudget(double most_work, SearchObserver* observer)
    : m_most_work(most_work), m_spent(0.0), m_next_question(work_between_questions),
      m_is_over(false), m_progress(), m_observer(observer)
{
    m_progress.best_residual = -1.0;
}

void SearchBudget::spend(double work)
{
    m_spent += work;
    if (m_spent > m_most_work)
        m_is_over = true;
    if (m_spent < m_next_question || m_is_over)
        return;
    m_next_question = m_spent + work_between_questions;
    m_is_over = m_observer && !m_observer->go_on(m_progress);
}

void SearchBudget::tell_end()
{
    if (m_observer)
        m_observer->ended(m_progress, !m_is_over);
}

double fit_work(int n, bool succeeded) { return succeeded ? 2e3 + 150.0 * n : 4e3 + 500.0 * n; }
